// xlsx_bench FILE.xlsx [REPETITIONS]
//
// The processor's time that an .xlsx file takes to read, beside what bounds it from below: unpacking the
// sheet and passing it through expat with handlers that do nothing. Both take turns in one run. Also what
// memory reading takes beyond the cells.

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <expat.h>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>
#include <zip.h>

#include "tbvnonpara/files/reading/spreadsheet_file.hpp"

namespace {

using namespace TBVNonPara;

/// Of the processor, so that other processes do not count.
double seconds(const auto& action) {
    const std::clock_t start = std::clock();
    action();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void nothing(void* /*user*/, const char* /*name*/, const char** /*attributes*/) {
}
void nothingAtEnd(void* /*user*/, const char* /*name*/) {
}
void nothingOfText(void* /*user*/, const char* /*text*/, int /*length*/) {
}

/// Unpacks the sheet straight into the parser's buffer.
void passThrough(const char* path) {
    constexpr int pieceSize = 1 << 16;
    zip_t* const archive = zip_open(path, ZIP_RDONLY, nullptr);
    zip_file_t* const sheet = zip_fopen(archive, "xl/worksheets/sheet1.xml", 0);
    XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetElementHandler(parser, nothing, nothingAtEnd);
    XML_SetCharacterDataHandler(parser, nothingOfText);
    zip_int64_t size = 1;
    while (size > 0) {
        size = zip_fread(sheet, XML_GetBuffer(parser, pieceSize), pieceSize);
        if (XML_ParseBuffer(parser, static_cast<int>(size), size == 0 ? 1 : 0) != XML_STATUS_OK) {
            std::abort();
        }
    }
    XML_ParserFree(parser);
    zip_fclose(sheet);
    zip_discard(archive);
}

long statusField(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name)) {
            return std::atol(line.c_str() + name.size() + 1);
        }
    }
    return 0;
}

/// In a process of its own, so that nothing is held from before.
void tellMemory(const char* path) {
    std::fflush(stdout);
    const pid_t child = fork();
    if (child != 0) {
        waitpid(child, nullptr, 0);
        return;
    }
    const long before = statusField("VmRSS:");
    const workbook::FileContents contents = workbook::readSpreadsheet(path);
    std::size_t cells = 0;
    for (const workbook::FileSheet& sheet : contents.sheets) {
        cells += sheet.cells.memory();
    }
    const double peak = static_cast<double>(statusField("VmHWM:") - before) / 1024;
    const double own = static_cast<double>(cells) / (1024 * 1024);
    std::printf("memory: cells %.1f MiB, peak %.1f MiB, over the cells %.1f MiB\n", own, peak, peak - own);
    std::fflush(stdout);
    _exit(0);
}

}  // namespace

int main(int count, char** words) {
    if (count < 2) {
        std::fprintf(stderr, "xlsx_bench FILE.xlsx [REPETITIONS]\n");
        return 2;
    }
    const int repetitions = count > 2 ? std::atoi(words[2]) : 5;
    tellMemory(words[1]);
    std::vector<double> floors;
    std::vector<double> readings;
    for (int i = 0; i < repetitions; ++i) {
        floors.push_back(seconds([&] { passThrough(words[1]); }));
        readings.push_back(seconds([&] { (void)workbook::readSpreadsheet(words[1]); }));
    }
    const double least = std::ranges::min(floors);
    const double own = std::ranges::min(readings);
    std::ranges::nth_element(floors, floors.begin() + repetitions / 2);
    std::ranges::nth_element(readings, readings.begin() + repetitions / 2);
    const auto half = static_cast<std::size_t>(repetitions / 2);
    std::printf("inflate and expat, empty handlers: least %.3f s, median %.3f s\n", least, floors[half]);
    std::printf("reading into cells:                least %.3f s, median %.3f s\n", own, readings[half]);
    std::printf("ratio:                             least %.2f,   median %.2f\n", own / least,
                readings[half] / floors[half]);
}
