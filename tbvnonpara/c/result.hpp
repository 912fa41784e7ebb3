#pragma once

#include <mutex>
#include <string>

#include "tbvnonpara/c/tbvnonpara.h"
#include "tbvnonpara/statistics/figures.hpp"

/// The figures of a test, and their JSON once somebody asks for it.
struct tbv_result {
    explicit tbv_result(TBVNonPara::statistics::Figure all) : figures(std::move(all)) {}

    TBVNonPara::statistics::Figure figures;
    mutable std::once_flag written;
    mutable std::string json;
};
