// time_alglib FILE.csv TEST
// Prints the least seconds of processor time that ALGLIB takes for a test of the file's first columns.

#include <cstdio>
#include <libalglib/statistics.h>
#include <string>

#include "bench/least_seconds.hpp"
#include "bench/numbers_file.hpp"

namespace TBVNonPara::Bench {

namespace {

alglib::real_1d_array column(const NumbersFile& file, std::size_t number) {
    const auto columns = static_cast<std::size_t>(file.columns.value());
    alglib::real_1d_array values;
    values.setlength(static_cast<alglib::ae_int_t>(file.rows().value()));
    for (alglib::ae_int_t i = 0; i < values.length(); ++i) {
        values[i] = file.numbers[static_cast<std::size_t>(i) * columns + number];
    }
    return values;
}

/// One call of the test; false for a test that ALGLIB does not have.
bool call(const std::string& test, const alglib::real_1d_array& a, const alglib::real_1d_array& b,
          const alglib::real_1d_array& differences) {
    double both = 0;
    double left = 0;
    double right = 0;
    if (test == "mann-whitney") {
        alglib::mannwhitneyutest(a, a.length(), b, b.length(), both, left, right);
    } else if (test == "wilcoxon") {
        alglib::wilcoxonsignedranktest(differences, differences.length(), 0, both, left, right);
    } else if (test == "spearman") {
        const double r = alglib::spearmancorr2(a, b, a.length());
        alglib::spearmanrankcorrelationsignificance(r, a.length(), both, left, right);
    } else if (test == "sign") {
        alglib::onesamplesigntest(differences, differences.length(), 0, both, left, right);
    } else {
        return false;
    }
    return true;
}

int timeAlglib(const char* path, const std::string& test) {
    const NumbersFile file(path);
    const alglib::real_1d_array a = column(file, 0);
    const alglib::real_1d_array b = column(file, file.columns > Long(1) ? 1 : 0);
    alglib::real_1d_array differences = a;
    for (alglib::ae_int_t i = 0; i < a.length(); ++i) {
        differences[i] -= b[i];
    }
    if (!call(test, a, b, differences)) {
        return 1;
    }
    std::printf("%.9g\n", leastSeconds([&] { call(test, a, b, differences); }));
    return 0;
}

}  // namespace

}  // namespace TBVNonPara::Bench

int main(int count, char** words) {
    return count == 3 ? TBVNonPara::Bench::timeAlglib(words[1], words[2]) : 2;
}
