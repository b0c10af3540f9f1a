// Compares the field splitter with Boost.Tokenizer's escaped-list separator. Both produce the fields' texts and the
// number of each field. Prints the ratio for each kind and size of list.
#include <benchmark/benchmark.h>

#include <boost/tokenizer.hpp>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "routing/FieldSplitter.h"

namespace {

using runtime::String;

enum Quotes : std::int64_t { kPlain, kQuoted };

/// A list of fields like "NAME17". Every third field is a number. With quotes, every second field contains a comma and
/// is quoted.
String MakeList(std::int64_t fields, bool hasQuotes) {
    String list;
    for (std::int64_t i = 0; i < fields; ++i) {
        if (i > 0) list += u',';
        const String number = runtime::FromAscii(std::to_string(i % 1000));
        const String text = i % 3 == 0 ? u" " + number : u"NAME" + number;
        list += hasQuotes && i % 2 == 1 ? u'"' + text + u",X\"" : text;
    }
    return list;
}

void Ours(benchmark::State& state) {
    services::ProcessValues values;
    services::UseValues(&values);
    const String list = MakeList(state.range(0), state.range(1) == kQuoted);
    for (auto _ : state) {
        routing::SplitFields(list);
        benchmark::DoNotOptimize(routing::FieldValues().data());
    }
    if (routing::FieldValues().front() != static_cast<double>(state.range(0))) state.SkipWithError("wrong count");
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Peer(benchmark::State& state) {
    using Separator = boost::escaped_list_separator<char16_t>;
    const String list = MakeList(state.range(0), state.range(1) == kQuoted);
    std::size_t count = 0;
    for (auto _ : state) {
        std::vector<String> texts;
        std::vector<double> values;
        const boost::tokenizer<Separator, String::const_iterator, String> tokens(list, Separator(u'\\', u',', u'"'));
        for (const String& token : tokens) {
            texts.push_back(token);
            values.push_back(routing::FieldToNumber(token));
        }
        benchmark::DoNotOptimize(values.data());
        count = texts.size();
    }
    if (count != static_cast<std::size_t>(state.range(0))) state.SkipWithError("wrong count");
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Lists(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgNames({"fields", "quotes"})->Unit(benchmark::kMillisecond);
    for (const std::int64_t quotes : {kPlain, kQuoted}) {
        for (const std::int64_t fields : {100'000, 1'000'000}) benchmark->Args({fields, quotes});
    }
}

BENCHMARK(Ours)->Apply(Lists);
BENCHMARK(Peer)->Apply(Lists);

/// Prints the usual table, then the ratios.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration) times_[run.run_name.args][run.run_name.function_name] = run;
        }
    }

    void Finalize() override {
        for (const auto& [list, runs] : times_) {
            const auto ours = runs.find("Ours");
            const auto peer = runs.find("Peer");
            if (ours == runs.end() || peer == runs.end()) continue;
            const double ratio = ours->second.GetAdjustedCPUTime() / peer->second.GetAdjustedCPUTime();
            std::printf("ours/peer %-28s %.2f\n", list.c_str(), ratio);
        }
    }

 private:
    std::map<std::string, std::map<std::string, Run>> times_;
};

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
}
