#include "bench/ratio_table.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <map>
#include <utility>
#include <vector>

namespace {

constexpr int kRepetitions = 15;
constexpr double kShortest = 0.02;  // seconds of one repetition

struct Pair {
    std::string Name;
    std::string LimitName;
    double Goal;
};

std::vector<Pair>& Pairs() {
    static std::vector<Pair> pairs;
    return pairs;
}

std::string LimitOf(const std::string& name) {
    return name + " / limit";
}

// Keeps the fastest repetition of each benchmark, in microseconds.
class FastestReporter final : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context& /*context*/) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration) continue;
            const double time = run.real_accumulated_time / static_cast<double>(run.iterations);
            const auto [at, added] = fastest_.try_emplace(run.run_name.function_name, time);
            at->second = std::min(at->second, time);
        }
    }

    void Finalize() override {
        std::printf("%-44s %12s %12s %7s %6s\n", "work", "time", "limit", "ratio", "goal");
        for (const Pair& pair : Pairs()) PrintRow(pair);
    }

  private:
    void PrintRow(const Pair& pair) {
        const auto work = fastest_.find(pair.Name);
        const auto limit = fastest_.find(LimitOf(pair.Name));
        if (work == fastest_.end() || limit == fastest_.end()) return;
        const double ratio = work->second / limit->second;
        std::printf("%-44s %9.2f us %9.2f us %7.2f %6.2f %s\n", pair.Name.c_str(),
                    work->second * 1e6, limit->second * 1e6, ratio, pair.Goal,
                    ratio <= pair.Goal ? "holds" : "MISSED");
        std::printf("    limit: %s\n", pair.LimitName.c_str());
    }

    std::map<std::string, double> fastest_;
};

void Add(const std::string& name, std::function<void()> work) {
    benchmark::RegisterBenchmark(name.c_str(),
                                 [work = std::move(work)](benchmark::State& state) {
                                     work();  // what it has to prepare does not count
                                     for (auto _ : state) {
                                         work();
                                         benchmark::ClobberMemory();
                                     }
                                 })
        ->Repetitions(kRepetitions)
        ->MinTime(kShortest)
        ->UseRealTime();
}

}  // namespace

void AddPair(const std::string& name, const std::string& limitName, std::function<void()> work,
             std::function<void()> limit, double goal) {
    Pairs().push_back({name, limitName, goal});
    Add(LimitOf(name), std::move(limit));
    Add(name, std::move(work));
}

int RunPairs(int argc, char** argv) {
    // Repetitions of all benchmarks are mixed, so that a busy moment of the machine hits both
    // sides.
    std::vector<char*> arguments(argv, argv + argc);
    std::string mixed = "--benchmark_enable_random_interleaving=true";
    arguments.push_back(mixed.data());
    int count = argc + 1;
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 1;
    FastestReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
