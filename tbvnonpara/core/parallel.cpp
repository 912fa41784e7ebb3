#include "tbvnonpara/core/parallel.hpp"

#include <exception>
#include <thread>
#include <vector>

namespace TBVNonPara {

namespace {

/// Threads that are waited for in any case.
class Crew {
 public:
    Crew() = default;
    Crew(const Crew&) = delete;
    Crew& operator=(const Crew&) = delete;
    ~Crew() {
        for (std::thread& thread : m_Threads) {
            thread.join();
        }
    }
    void add(auto work) { m_Threads.emplace_back(std::move(work)); }

 private:
    std::vector<std::thread> m_Threads;
};

}  // namespace

void inParallel(std::size_t parts, const std::function<void(std::size_t)>& work) {
    std::vector<std::exception_ptr> raised(parts);
    const auto perform = [&](std::size_t part) noexcept {
        try {
            work(part);
        } catch (...) {
            raised[part] = std::current_exception();
        }
    };
    {
        Crew crew;
        for (std::size_t part = 1; part < parts; ++part) {
            crew.add([&perform, part] { perform(part); });
        }
        perform(0);
    }
    for (const std::exception_ptr& each : raised) {
        if (each) {
            std::rethrow_exception(each);
        }
    }
}

}  // namespace TBVNonPara
