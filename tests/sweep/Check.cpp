// Reads bytes from a copy of just their size, so that the address sanitizer sees what reads behind the end.
#include "Check.h"

#include "Allocations.h"

#include <schema/CompiledForm.h>
#include <schema/Document.h>
#include <schema/XmlPlatform.h>
#include <schema/core.h>

#include <xsd/cxx/exceptions.hxx>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <typeinfo>

namespace sweep {

namespace {

constexpr std::size_t allowedAllocation = 1024 * 1024;
constexpr std::size_t allowedForEachByte = 16;

// malloc's memory begins at a multiple of 16 and ends, for the sanitizer, at the last byte.
class ExactCopy {
public:
    explicit ExactCopy(std::string_view bytes) : memory_(std::malloc(bytes.size())), size_(bytes.size()) {
        if (memory_ == nullptr && size_ != 0) throw std::bad_alloc();
        if (size_ != 0) std::memcpy(memory_, bytes.data(), size_);
    }
    ~ExactCopy() { std::free(memory_); }
    ExactCopy(const ExactCopy&) = delete;
    ExactCopy& operator=(const ExactCopy&) = delete;

    std::span<const char> bytes() const { return {static_cast<const char*>(memory_), size_}; }

private:
    void* memory_;
    std::size_t size_;
};

std::unique_ptr<otxns::Otx> read(std::string_view bytes) {
    const ExactCopy copy(bytes);
    return otxns::readCompiled(copy.bytes());
}

std::string saved(const otxns::Otx& tree) {
    std::ostringstream out;
    if (otxns::writeCompiled(tree, out) != out.view().size()) throw std::runtime_error("the size told is wrong");
    return std::move(out).str();
}

// The tree has to come through saving and loading.
void requireRoundTrip(const otxns::Otx& tree, std::string_view from) {
    const std::string first = saved(tree);
    // Saved as they were read: reading them again could only give the same.
    if (first == from) return;
    if (saved(*read(first)) != first) throw std::runtime_error("what was saved doesn't save as the same bytes");
}

std::string describe(const std::exception& failure) {
    return std::string(typeid(failure).name()) + ": " + failure.what();
}

}  // namespace

Judgement check(const std::vector<char>& bytes) {
    const std::string_view file(bytes.data(), bytes.size());
    Judgement judgement;
    std::unique_ptr<otxns::Otx> tree;
    {
        const LargestAllocation allocations;
        try {
            tree = read(file);
            judgement.loaded = true;
        } catch (const xsd::cxx::exception&) {
            // The refusal that a broken file must meet.
        } catch (const std::exception& failure) {
            judgement.failure = "refused with a foreign exception, " + describe(failure);
        }
        judgement.largestAllocation = allocations.bytes();
    }
    if (judgement.largestAllocation > allowedAllocation + allowedForEachByte * file.size())
        judgement.failure = "allocated " + std::to_string(judgement.largestAllocation) + " bytes at once";
    if (!judgement.loaded) return judgement;
    try {
        requireRoundTrip(*tree, file);
    } catch (const std::exception& failure) {
        judgement.failure = "loaded, but then " + describe(failure);
    }
    return judgement;
}

std::vector<char> compiledForm(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("can't be opened");
    if (!path.ends_with(".otx")) return otxns::contentOf(file);
    const schema::XmlPlatform platform;
    const std::string bytes = saved(*otxns::otx(file, schema::flags::dont_validate));
    return {bytes.begin(), bytes.end()};
}

}  // namespace sweep
