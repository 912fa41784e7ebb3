#pragma once

/// @file
/// The eight tests in full: values in, every figure out, without a sheet or a report.
///
///     using namespace TBVNonPara::statistics;
///     const std::vector<double> before{14.1, 12.8, 15.0, 13.3};
///     const std::vector<double> after{16.2, 15.4, 13.9, 17.0, 16.6};
///     const MannWhitney test = mannWhitney(before, after, {.confidence = 0.9});
///     test.superiority.value;   // how often one of the first is larger; .low and .high bound it
///     test.exact->two.value;    // P, where an exact one exists
///
/// Values are finite doubles in any order and of any number; NaN is refused, or left out with `.missing =
/// Missing::Omit`. What does not exist for some data is an empty std::optional. What a caller did wrong is
/// std::invalid_argument, whose text names the sample and the position. The functions hold no state: any
/// number of threads may call them.
///
/// `figureOf(test)` gives all figures as a tree of names and values, `find(tree, "effect.superiority.low")`
/// one of them.

#include "tbvnonpara/statistics/figures.hpp"
#include "tbvnonpara/statistics/friedman.hpp"
#include "tbvnonpara/statistics/kruskal_wallis.hpp"
#include "tbvnonpara/statistics/mann_whitney.hpp"
#include "tbvnonpara/statistics/median.hpp"
#include "tbvnonpara/statistics/options.hpp"
#include "tbvnonpara/statistics/runs.hpp"
#include "tbvnonpara/statistics/sample_spans.hpp"
#include "tbvnonpara/statistics/sign.hpp"
#include "tbvnonpara/statistics/spearman.hpp"
#include "tbvnonpara/statistics/wilcoxon.hpp"
