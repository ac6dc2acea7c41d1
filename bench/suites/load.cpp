// The loader of documents against the parser alone, on the same text in the same run.
#include <schema/CompiledForm.h>
#include <schema/Document.h>
#include <schema/DomParser.h>
#include <schema/XmlPlatform.h>
#include <schema/core.h>

#include <benchmark/benchmark.h>

#include <map>
#include <ostream>
#include <sstream>
#include <streambuf>
#include <string>

namespace {

const char* const head = R"(<?xml version="1.0" encoding="UTF-8"?>
<otx xmlns="http://iso.org/OTX/1.0.0" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" id="o" name="x"
     package="bench" version="1" timestamp="2026-01-15T10:00:00">
  <procedures>
)";

const char* const node = R"(          <action id="a@" name="Add">
            <specification>Counts one more</specification>
            <realisation xsi:type="Assignment">
              <result xsi:type="IntegerVariable" name="i"/>
              <term xsi:type="Add">
                <numeral xsi:type="IntegerValue" valueOf="i"/>
                <numeral xsi:type="IntegerLiteral" value="@"/>
              </term>
            </realisation>
          </action>
          <branch id="b@">
            <realisation>
              <if>
                <condition id="c@">
                  <realisation xsi:type="IsGreater">
                    <left xsi:type="IntegerValue" valueOf="i"/>
                    <right xsi:type="IntegerValue" valueOf="limit"/>
                  </realisation>
                </condition>
                <flow><return id="r@"/></flow>
              </if>
            </realisation>
          </branch>
)";

// A document of about that many bytes: procedures of twenty pairs of nodes.
const std::string& document(std::size_t size) {
    static std::map<std::size_t, std::string> made;
    std::string& text = made[size];
    if (!text.empty()) return text;
    text = head;
    for (std::size_t number = 0; text.size() < size; ++number) {
        const std::string name = std::to_string(number);
        text += "    <procedure id=\"p" + name + "\" name=\"p" + name + "\"><realisation>\n        <flow>\n";
        for (int i = 0; i < 20; ++i)
            for (const char* c = node; *c != 0; ++c) {
                if (*c == '@')
                    text += name + std::to_string(i);
                else
                    text += *c;
            }
        text += "        </flow>\n    </realisation></procedure>\n";
    }
    return text += "  </procedures>\n</otx>\n";
}

void parseOnly(benchmark::State& state) {
    const schema::XmlPlatform platform;
    const std::string& text = document(static_cast<std::size_t>(state.range(0)) * 1'000'000);
    for (auto _ : state) {
        std::istringstream stream(text);
        benchmark::DoNotOptimize(schema::parseDom(stream));
    }
}

void loadWhole(benchmark::State& state) {
    const schema::XmlPlatform platform;
    const std::string& text = document(static_cast<std::size_t>(state.range(0)) * 1'000'000);
    for (auto _ : state) {
        std::istringstream stream(text);
        auto tree = otxns::otx(stream, schema::flags::dont_validate);
        state.PauseTiming();
        tree.reset();
        state.ResumeTiming();
    }
}

// Memory of a known size to write to.
class Memory : public std::streambuf {
public:
    explicit Memory(std::string& place) { setp(place.data(), place.data() + place.size()); }
};

std::string compiled(const otxns::Otx& tree) {
    std::ostringstream out;
    otxns::writeCompiled(tree, out);
    return out.str();
}

void loadCompiled(benchmark::State& state) {
    const schema::XmlPlatform platform;
    std::istringstream text(document(static_cast<std::size_t>(state.range(0)) * 1'000'000));
    const std::string bytes = compiled(*otxns::otx(text, schema::flags::dont_validate));
    for (auto _ : state) {
        auto tree = otxns::readCompiled(bytes);
        state.PauseTiming();
        tree.reset();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes.size()));
}

void saveCompiled(benchmark::State& state) {
    const schema::XmlPlatform platform;
    std::istringstream text(document(static_cast<std::size_t>(state.range(0)) * 1'000'000));
    const auto tree = otxns::otx(text, schema::flags::dont_validate);
    const std::size_t size = compiled(*tree).size();
    std::string place(size, '\0');
    for (auto _ : state) {
        Memory memory(place);
        std::ostream out(&memory);
        otxns::writeCompiled(*tree, out);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * size));
}

}  // namespace

BENCHMARK(loadCompiled)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);
BENCHMARK(saveCompiled)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);
BENCHMARK(parseOnly)->Arg(1)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond);
BENCHMARK(loadWhole)->Arg(1)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
