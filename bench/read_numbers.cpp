// read_numbers FILE.csv: reads the file and converts its numbers by from_chars, the least that any program
// that analyses the file has to do. Without a file it does nothing, the least of any program.

#include <cstdio>

#include "bench/numbers_file.hpp"

int main(int count, char** words) {
    if (count > 1) {
        const TBVNonPara::Bench::NumbersFile file(words[1]);
        std::printf("%zu numbers\n", file.numbers.size());
    }
}
