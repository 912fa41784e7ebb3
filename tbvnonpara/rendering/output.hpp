#pragma once

#include <cstdio>
#include <string>
#include <string_view>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara::rendering {

/// Where a report is written to. A write that fails (a closed pipe, a full disk) raises
/// std::system_error; only after finish has everything been written.
class TBVNONPARA_API Output {
 public:
    explicit Output(std::FILE* file) : m_File(file) {}

    void write(std::string_view text) {
        m_Pending += text;
        if (m_Pending.size() >= enough) {
            flush();
        }
    }
    void finish();

 private:
    static constexpr std::size_t enough = 1 << 16;

    void flush();

    std::FILE* m_File;
    std::string m_Pending;
};

}  // namespace TBVNonPara::rendering
