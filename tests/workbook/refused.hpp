#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

/// Expects the host's error with a description that contains the words.
template <typename Action>
void expectRefused(Action action, const std::string& words) {
    try {
        action();
        ADD_FAILURE() << "was not refused: " << words;
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), hostErrorNumber);
        EXPECT_THAT(error.description(), testing::HasSubstr(words));
        EXPECT_EQ(error.source(), "");
    }
}

}  // namespace TBVNonPara::workbook
