#include "Comparison.h"

#include <QApplication>
#include <QProcess>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else
#define CALLGRIND_TOGGLE_COLLECT
#define CALLGRIND_ZERO_STATS
#define CALLGRIND_DUMP_STATS_AT(name) static_cast<void>(name)
#endif

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <map>
#include <vector>

namespace {

constexpr int repetitions = 5;

std::vector<Comparison> comparisons;
std::map<std::string, Round> processRounds;
bool isCounting = false;

// The 10th percentile: other programs and the disk can only add to a round.
double repetition(const RoundMaker& maker, int rounds)
{
    const Round round = maker();
    std::vector<double> values(static_cast<std::size_t>(std::max(1, rounds / repetitions)));
    std::generate(values.begin(), values.end(), round);
    const auto low = values.begin() + static_cast<std::ptrdiff_t>((values.size() - 1) / 10);
    std::nth_element(values.begin(), low, values.end());
    return *low;
}

// Both sides in turn; the best repetition of each counts.
bool run(const Comparison& comparison)
{
    double floor = repetition(comparison.floor, comparison.rounds);
    double subject = repetition(comparison.subject, comparison.rounds);
    for (int i = 1; i < repetitions; ++i) {
        floor = std::min(floor, repetition(comparison.floor, comparison.rounds));
        subject = std::min(subject, repetition(comparison.subject, comparison.rounds));
    }
    const bool holds = comparison.bound == 0.0 || subject <= floor * comparison.bound;
    std::printf("%-30s %12.4f %12.4f ms %8.3f", comparison.name.c_str(), floor * 1e3, subject * 1e3,
                subject / floor);
    if (comparison.bound != 0.0) {
        std::printf("  at most %.2f%s", comparison.bound, holds ? "" : "  EXCEEDED");
    }
    std::printf("\n");
    std::fflush(stdout);
    return holds;
}

// Under callgrind: one dump for each side, named after it.
void count(const std::string& name, const RoundMaker& maker)
{
    const Round round = maker();
    round();
    CALLGRIND_ZERO_STATS;
    round();
    CALLGRIND_DUMP_STATS_AT(name.c_str());
}

} // namespace

void compare(Comparison comparison)
{
    comparisons.push_back(std::move(comparison));
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
    processRounds[name] = std::move(round);
    return [name] {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {"--once", QString::fromStdString(name)});
        process.waitForFinished();
        return process.readAllStandardOutput().toDouble();
    };
}

/// bm_ratios [NAME]: prints the comparisons whose name contains NAME, and fails when a bound is exceeded.
/// bm_ratios --count: runs each once under callgrind. bm_ratios --once NAME: see inFreshProcess().
int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    // As in a host that discards debug lines: composing them still costs.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    addPanelComparisons();
    addSelecterComparisons();
    const std::string option = argc > 1 ? argv[1] : "";
    if (argc > 2 && option == "--once") {
        std::printf("%.9f\n", processRounds.at(argv[2])());
        return 0;
    }
    isCounting = option == "--count";
    bool allHold = true;
    for (const Comparison& comparison : comparisons) {
        if (isCounting && comparison.isCounted) {
            count(comparison.name + ":floor", comparison.floor);
            count(comparison.name, comparison.subject);
        } else if (!isCounting && comparison.name.find(option) != std::string::npos) {
            allHold = run(comparison) && allHold;
        }
    }
    return allHold ? 0 : 1;
}
