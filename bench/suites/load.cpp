// The loader of documents against the parser alone, on the same text in the same run.
#include <schema/Document.h>
#include <schema/DomParser.h>
#include <schema/XmlPlatform.h>
#include <schema/core.h>

#include <benchmark/benchmark.h>

#include <map>
#include <sstream>
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

}  // namespace

BENCHMARK(parseOnly)->Arg(1)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond);
BENCHMARK(loadWhole)->Arg(1)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
