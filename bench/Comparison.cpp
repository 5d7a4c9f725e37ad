#include "Comparison.h"

#include <QCoreApplication>
#include <QProcess>

#include <benchmark/benchmark.h>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else
#define CALLGRIND_TOGGLE_COLLECT
#define CALLGRIND_ZERO_STATS
#define CALLGRIND_DUMP_STATS_AT(name) static_cast<void>(name)
#endif

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <vector>

namespace {

// Ratios are compared within one run, but a machine that is shared still blurs them.
constexpr double checkMargin = 1.5;

std::vector<Comparison>& comparisons()
{
    static std::vector<Comparison> all;
    return all;
}

std::map<std::string, Round>& processRounds()
{
    static std::map<std::string, Round> all;
    return all;
}

bool isCounting = false;

void measure(benchmark::State& state, const RoundMaker& maker)
{
    const Round round = maker();
    std::vector<double> values;
    for ([[maybe_unused]] const auto iteration : state) {
        values.push_back(round());
        state.SetIterationTime(values.back());
    }
    // The fast end: what else machine and disk do can only add.
    const auto fast = values.begin() + static_cast<std::ptrdiff_t>((values.size() - 1) / 10);
    std::nth_element(values.begin(), fast, values.end());
    state.counters["fast"] = *fast;
}

/// Keeps the best repetition of a benchmark: what else the machine does can only add to it.
class BestRepetitions : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
                const double value = run.counters.at("fast");
                const auto [found, isNew] = m_best.emplace(run.run_name.function_name, value);
                found->second = std::min(found->second, value);
            }
        }
    }

    /// 0 for a benchmark that did not run.
    double best(const std::string& name) const
    {
        const auto found = m_best.find(name);
        return found == m_best.end() ? 0.0 : found->second;
    }

private:
    std::map<std::string, double> m_best;
};

std::string floorName(const Comparison& comparison)
{
    return comparison.name + ":floor";
}

void registerSide(const Comparison& comparison, const std::string& name, const RoundMaker& maker,
                  int repetitions)
{
    benchmark::RegisterBenchmark(name.c_str(), [&maker](benchmark::State& state) { measure(state, maker); })
        ->Iterations(std::max(1, comparison.rounds / repetitions))
        ->Repetitions(repetitions)
        ->UseManualTime();
}

bool print(const Comparison& comparison, double floor, double subject, double margin)
{
    const bool isTime = comparison.unit == Unit::Time;
    const double scale = isTime ? 1e3 : 1.0 / 1024;
    const double ratio = subject / floor;
    const bool holds = comparison.bound == 0.0 || ratio <= comparison.bound * margin;
    std::printf("%-28s %12.4f %12.4f %s %8.3f", comparison.name.c_str(), floor * scale, subject * scale,
                isTime ? "ms " : "KiB", ratio);
    if (comparison.bound != 0.0) {
        std::printf("  at most %.2f%s", comparison.bound, holds ? "" : "  EXCEEDED");
    }
    std::printf("\n");
    std::fflush(stdout);
    return holds;
}

// Under callgrind: one dump for each side, named after it.
void countInstructions(const std::string& name)
{
    isCounting = true;
    for (const Comparison& comparison : comparisons()) {
        if (!comparison.isCounted || comparison.name.find(name) == std::string::npos) {
            continue;
        }
        for (const auto& [label, maker] : {std::pair(floorName(comparison), comparison.floor),
                                           std::pair(comparison.name, comparison.subject)}) {
            const Round round = maker();
            round();
            CALLGRIND_ZERO_STATS;
            round();
            CALLGRIND_DUMP_STATS_AT(label.c_str());
        }
    }
}

} // namespace

void compare(Comparison comparison)
{
    comparisons().push_back(std::move(comparison));
}

double timed(const std::function<void()>& action, Clock clock)
{
    const auto now = [clock] {
        timespec time{};
        ::clock_gettime(clock == Clock::Process ? CLOCK_PROCESS_CPUTIME_ID : CLOCK_MONOTONIC, &time);
        return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
    };
    if (isCounting) {
        CALLGRIND_TOGGLE_COLLECT;
    }
    const double start = now();
    action();
    const double end = now();
    if (isCounting) {
        CALLGRIND_TOGGLE_COLLECT;
    }
    return end - start;
}

Round inFreshProcess(const std::string& name, Round round)
{
    processRounds()[name] = std::move(round);
    return [name] {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(),
                      {QStringLiteral("--once"), QString::fromStdString(name)});
        process.waitForFinished();
        return process.readAllStandardOutput().toDouble();
    };
}

bool runComparisons(int argc, char** argv)
{
    if (argc == 3 && std::strcmp(argv[1], "--once") == 0) {
        std::printf("%.9f\n", processRounds().at(argv[2])());
        return true;
    }
    if (argc >= 2 && std::strcmp(argv[1], "--count") == 0) {
        countInstructions(argc > 2 ? argv[2] : "");
        return true;
    }
    const bool isCheck = argc > 1 && std::strcmp(argv[1], "--check") == 0;

    // Before the given ones, which win.
    std::vector<char*> arguments(argv, argv + argc);
    char interleaving[] = "--benchmark_enable_random_interleaving=true";
    arguments.insert(arguments.begin() + 1, interleaving);
    if (isCheck) {
        arguments.erase(arguments.begin() + 2);
    }
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    const int repetitions = isCheck ? 3 : 5;
    for (const Comparison& comparison : comparisons()) {
        if (!isCheck || comparison.bound != 0.0) {
            registerSide(comparison, floorName(comparison), comparison.floor, repetitions);
            registerSide(comparison, comparison.name, comparison.subject, repetitions);
        }
    }
    BestRepetitions results;
    benchmark::RunSpecifiedBenchmarks(&results);

    std::printf("%-28s %12s %12s %12s\n", "", "floor", "subject", "ratio");
    bool allHold = true;
    for (const Comparison& comparison : comparisons()) {
        const double floor = results.best(floorName(comparison));
        const double subject = results.best(comparison.name);
        if (floor != 0.0 && subject != 0.0) {
            allHold = print(comparison, floor, subject, isCheck ? checkMargin : 1.0) && allHold;
        }
    }
    return allHold;
}
