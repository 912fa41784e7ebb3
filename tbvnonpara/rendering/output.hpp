#pragma once

#include <cstdio>
#include <string>
#include <string_view>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara::rendering {

/// Where a report is written to. A write that fails (a closed pipe, a full disk) raises
/// std::system_error; only after finish has everything been written.
///
///     Output output(stdout);
///     writeText(report, false, output);
///     output.finish();
class TBVNONPARA_API Output {
 public:
    /// A file that is open for writing until finish(); it is not closed.
    explicit Output(std::FILE* file) : m_File(file) {}

    /// Text in UTF-8, as it is. It may wait for more: up to 64 kB.
    void write(std::string_view text) {
        m_Pending += text;
        if (m_Pending.size() >= enough) {
            flush();
        }
    }
    /// Writes what waits.
    void finish();

 private:
    static constexpr std::size_t enough = 1 << 16;

    void flush();

    std::FILE* m_File;
    std::string m_Pending;
};

}  // namespace TBVNonPara::rendering
