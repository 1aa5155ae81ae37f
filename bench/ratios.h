// Prints, after the usual table, how the medians of two benchmarks compare.
#ifndef BENCH_RATIOS_H
#define BENCH_RATIOS_H

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace bench {

// One statement about two benchmarks: the time of `measured` is at most `limit` times the time of
// `reference`. A throughput of at least x times is a time of at most 1 / x.
struct Ratio
{
    std::string measured;
    std::string reference;
    double limit;
};

// One statement about one benchmark: it runs at least `perSecond` times a second.
struct Rate
{
    std::string measured;
    double perSecond;
};

// One statement about a counter of one benchmark: its median over the repetitions is at most
// `limit`.
struct Bound
{
    std::string measured;
    std::string counter;
    double limit;
};

// Collects the medians of the real times and of the counters while it prints the table.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.aggregate_name != "median")
                continue;
            const std::string name = run.run_name.function_name + "/" + run.run_name.args;
            m_medians[name] =
                run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
            for (const auto& [counter, value] : run.counters)
                m_counters[name + " " + counter] = value;
        }
        ConsoleReporter::ReportRuns(runs);
    }

    // Prints each ratio; result: whether all keep their limits.
    bool report(const std::vector<Ratio>& ratios) const
    {
        bool kept = true;
        for (const Ratio& ratio : ratios) {
            const auto measured = find(ratio.measured);
            const auto reference = find(ratio.reference);
            if (measured <= 0 || reference <= 0)
                continue;
            const double value = measured / reference;
            kept = kept && value <= ratio.limit;
            std::printf("%s takes %.3f times the median of %s (speed %.2f; limit %.3f): %s\n",
                        ratio.measured.c_str(), value, ratio.reference.c_str(), 1 / value,
                        ratio.limit, value <= ratio.limit ? "kept" : "MISSED");
        }
        return kept;
    }

    // The same for rates.
    bool report(const std::vector<Rate>& rates) const
    {
        bool kept = true;
        for (const Rate& rate : rates) {
            const auto seconds = find(rate.measured);
            if (seconds <= 0)
                continue;
            kept = kept && 1 / seconds >= rate.perSecond;
            std::printf("%s runs %.0f times a second (limit %.0f): %s\n", rate.measured.c_str(),
                        1 / seconds, rate.perSecond,
                        1 / seconds >= rate.perSecond ? "kept" : "MISSED");
        }
        return kept;
    }

    // The same for counters.
    bool report(const std::vector<Bound>& bounds) const
    {
        bool kept = true;
        for (const Bound& bound : bounds) {
            const auto found = m_counters.find(bound.measured + " " + bound.counter);
            if (found == m_counters.end())
                continue;
            kept = kept && found->second <= bound.limit;
            std::printf("%s has a median %s of %.3f (limit %.3f): %s\n", bound.measured.c_str(),
                        bound.counter.c_str(), found->second, bound.limit,
                        found->second <= bound.limit ? "kept" : "MISSED");
        }
        return kept;
    }

private:
    // The median in seconds; 0 when the benchmark did not run.
    double find(const std::string& name) const
    {
        auto found = m_medians.find(name);
        if (found == m_medians.end())
            found = m_medians.find(name + "/");
        return found == m_medians.end() ? 0 : found->second;
    }

    std::map<std::string, double> m_medians;  // in seconds
    std::map<std::string, double> m_counters; // the medians, by "benchmark/argument counter"
};

// The main function of a benchmark program: 9 repetitions in random order unless the command line
// says otherwise, medians, and then the ratios, rates and bounds. Result: 0, or 1 when a limit was
// missed.
inline int run(int argc, char** argv, const std::vector<Ratio>& ratios,
               const std::vector<Rate>& rates = {}, const std::vector<Bound>& bounds = {})
{
    std::vector<std::string> arguments(argv, argv + argc);
    arguments.insert(arguments.begin() + 1,
                     {"--benchmark_repetitions=9", "--benchmark_enable_random_interleaving=true",
                      "--benchmark_report_aggregates_only=true"});
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    if (benchmark::ReportUnrecognizedArguments(count, pointers.data()))
        return 2;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const bool ratiosKept = reporter.report(ratios);
    const bool ratesKept = reporter.report(rates);
    const bool boundsKept = reporter.report(bounds);
    return ratiosKept && ratesKept && boundsKept ? 0 : 1;
}

} // namespace bench

#endif
