// A C++ client of the tests in full: two samples in vectors, and an error.

#include <iostream>
#include <stdexcept>
#include <tbvnonpara/statistics.hpp>
#include <vector>

int main() {
    using namespace TBVNonPara::statistics;

    const std::vector<double> first{1, 2, 3};
    const std::vector<double> second{4, 5, 6};
    const MannWhitney test = mannWhitney(first, second);
    std::cout << "U = " << test.u[1] << ", P = " << test.exact->two.value << '\n';

    try {
        (void)mannWhitney(first, std::vector<double>{});
    } catch (const std::invalid_argument& error) {
        std::cout << error.what() << '\n';
    }
}
