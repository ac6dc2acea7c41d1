// A file of 50 MB by lines: by a sequence, through the store and a handle alone, and by std::getline. For lines of several
// lengths.
#include "Programs.h"

#include <otx/value/COtxFileReadHandle.h>
#include <store/FolderFileStore.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace {

using velkotx::host::FolderFileStore;

constexpr std::size_t fileSize = 50'000'000;

// A folder of its own with the file, gone afterwards.
class Folder {
public:
    explicit Folder(std::size_t lineLength) {
        std::string pattern = (std::filesystem::temp_directory_path() / "bench-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder");
        folder_ = pattern;
        std::ofstream out(file(), std::ios::binary);
        const std::string line = std::string(lineLength - 1, 'x') + '\n';
        for (std::size_t size = 0; size < fileSize; size += line.size()) out << line;
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() { std::filesystem::remove_all(folder_); }

    std::string name() const { return folder_.string(); }
    std::string file() const { return (folder_ / "lines.txt").string(); }

private:
    std::filesystem::path folder_;
};

void require(std::size_t lines, std::size_t lineLength) {
    if (lines != (fileSize + lineLength - 1) / lineLength) throw std::runtime_error("lines are missing");
}

template <class CountLines>
void measure(benchmark::State& state, CountLines countLines) {
    const auto lineLength = static_cast<std::size_t>(state.range(0));
    const Folder folder(lineLength);
    for (auto _ : state) require(countLines(folder), lineLength);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(fileSize));
}

void bareLines(benchmark::State& state) {
    measure(state, [](const Folder& folder) {
        std::ifstream in(folder.file(), std::ios::binary);
        std::size_t lines = 0;
        for (std::string line; std::getline(in, line); ++lines) benchmark::DoNotOptimize(line.data());
        return lines;
    });
}

void handleLines(benchmark::State& state) {
    measure(state, [](const Folder& folder) {
        FolderFileStore store(folder.name());
        auto stream = store.Decode(store.Open({"lines.txt", "FILE"}, Hvt::Fs::Caches::DEFAULT), "");
        const COtxFileReadHandle handle(stream, COtxStringEncoding::Utf8, COtxString("lines.txt"));
        OTX::IFileReadHandle& reading = handle.FileReadHandle();
        std::size_t lines = 0;
        for (; !reading.IsEof().Bool(); ++lines) benchmark::DoNotOptimize(reading.ReadLine());
        return lines;
    });
}

void sequenceLines(benchmark::State& state) {
    std::ifstream document(PROGRAMS_FOLDER "/files.otx");
    const auto sequencer = velkotx::CreateSequencer(document);
    const auto sink = std::make_shared<SilentSink>();
    sequencer->SetHost(sink);
    measure(state, [&](const Folder& folder) {
        sequencer->SetFileStore(std::make_shared<FolderFileStore>(folder.name()));
        const COtxValue out = sequencer->Run("main", COtxMap(), false);
        return static_cast<std::size_t>(OTX::GetParameter(out, "lines", OTX::ValueType::Integer).Int());
    });
}

}  // namespace

BENCHMARK(bareLines)->Arg(20)->Arg(80)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(handleLines)->Arg(20)->Arg(80)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(sequenceLines)->Arg(20)->Arg(80)->Arg(1000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
