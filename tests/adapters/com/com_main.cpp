#include <gtest/gtest.h>

#include "adapters/com/windows.hpp"

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {
        return 1;
    }
    const int failures = RUN_ALL_TESTS();
    CoUninitialize();
    return failures;
}
