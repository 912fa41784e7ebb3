#pragma once

#include <string>
#include <vector>

#include "tbvnonpara/statistics/figures.hpp"
#include "tbvnonpara/statistics/options.hpp"

namespace TBVNonPara::statistics {

using Lists = std::vector<std::vector<double>>;

/// The figures of the test with this name, "mann-whitney", of samples.
Figure figuresOfTest(const std::string& test, const Lists& samples, const Options& options = {});

/// A number of a result by its path; throws where there is none.
double numberAt(const Figure& figures, const std::string& path);

/// Whether a path leads to a figure, or to something that does not exist.
bool exists(const Figure& figures, const std::string& path);

}  // namespace TBVNonPara::statistics
