#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <functional>
#include <utility>
#include <vector>

/// Measures two implementations of the same job alternately, so that both see the same load of the machine. The order
/// alternates from pair to pair.
class PairedRuns {
  public:
    /// Medians in milliseconds. `ratio` is the median of the pairs' ratios, which is less sensitive to load peaks than
    /// the ratio of the medians.
    struct Result {
        double first = 0, second = 0, ratio = 0;
    };

    /// `settle` runs untimed before each measured run, to reset both sides.
    explicit PairedRuns(
        int pairs, std::function<void()> settle = [] {})
        : pairs_(pairs), settle_(std::move(settle)) {}

    /// Runs each side once to warm up, then the pairs, and prints medians and ratio.
    template <typename First, typename Second>
    Result Measure(const char* firstName, First first, const char* secondName, Second second) const {
        first();
        second();
        std::vector<double> firsts, seconds, ratios;
        for (int pair = 0; pair < pairs_; ++pair) {
            const bool firstGoesFirst = pair % 2 == 0;
            const double early = firstGoesFirst ? Milliseconds(first) : Milliseconds(second);
            const double late = firstGoesFirst ? Milliseconds(second) : Milliseconds(first);
            firsts.push_back(firstGoesFirst ? early : late);
            seconds.push_back(firstGoesFirst ? late : early);
            ratios.push_back(firsts.back() / seconds.back());
        }
        const Result result{Median(firsts), Median(seconds), Median(ratios)};
        std::printf("%s: %.2f ms\n%s: %.2f ms\nratio: %.2f (median of %d pairs)\n", firstName, result.first, secondName,
                    result.second, result.ratio, pairs_);
        return result;
    }

  private:
    template <typename Work>
    double Milliseconds(Work& work) const {
        settle_();
        const auto start = std::chrono::steady_clock::now();
        work();
        return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    }

    static double Median(std::vector<double> values) {
        const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
        std::nth_element(values.begin(), middle, values.end());
        return *middle;
    }

    int pairs_;
    std::function<void()> settle_;
};
