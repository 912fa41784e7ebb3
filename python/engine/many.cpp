#include "python/engine/many.hpp"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stdexcept>
#include <thread>

namespace TBVNonPara::python {

namespace {

/// Ends a count that nobody waits for any more.
struct Stopped {};

class Tests {
 public:
    Tests(const OfferedTest& test, std::size_t count, const std::function<Samples(std::size_t)>& samplesOf,
          Choices choices)
        : m_Test(test), m_SamplesOf(samplesOf), m_Choices(std::move(choices)), m_Results(count) {
        m_Choices.options.watch = [this](double) {
            if (m_Stop) {
                throw Stopped();
            }
        };
    }

    std::vector<TestedOrNot> run(const std::function<void()>& look) {
        const std::size_t processors = std::max(std::thread::hardware_concurrency(), 1U);
        {
            std::vector<std::jthread> workers(std::min(processors, m_Results.size()));
            m_Working = workers.size();
            std::ranges::generate(workers, [this] { return std::jthread([this] { work(); }); });
            waitFor(look);
        }
        if (m_Fault) {
            std::rethrow_exception(m_Fault);
        }
        return std::move(m_Results);
    }

 private:
    void work() {
        try {
            for (std::size_t number = m_Next++; number < m_Results.size() && !m_Stop; number = m_Next++) {
                m_Results[number] = one(number);
            }
        } catch (const Stopped&) {
        } catch (...) {
            const std::lock_guard lock(m_Mutex);
            m_Fault = std::current_exception();
            m_Stop = true;
        }
        const std::lock_guard lock(m_Mutex);
        m_Working -= 1;
        m_Changed.notify_all();
    }

    [[nodiscard]] TestedOrNot one(std::size_t number) const try {
        return runTest(m_Test, m_SamplesOf(number), m_Choices);
    } catch (const std::invalid_argument& wrong) {
        return wrong.what();
    }

    void waitFor(const std::function<void()>& look) try {
        using namespace std::chrono_literals;
        std::unique_lock lock(m_Mutex);
        while (!m_Changed.wait_for(lock, 50ms, [this] { return m_Working == 0; })) {
            lock.unlock();
            look();
            lock.lock();
        }
    } catch (...) {
        m_Stop = true;
        throw;
    }

    const OfferedTest& m_Test;
    const std::function<Samples(std::size_t)>& m_SamplesOf;
    Choices m_Choices;
    std::vector<TestedOrNot> m_Results;
    std::atomic<std::size_t> m_Next = 0;
    std::atomic<bool> m_Stop = false;
    std::mutex m_Mutex;
    std::condition_variable m_Changed;
    std::size_t m_Working = 0;
    std::exception_ptr m_Fault;
};

}  // namespace

std::vector<TestedOrNot> runMany(const OfferedTest& test, std::size_t count,
                                 const std::function<Samples(std::size_t)>& samplesOf, const Choices& choices,
                                 const std::function<void()>& look) {
    return Tests(test, count, samplesOf, choices).run(look);
}

}  // namespace TBVNonPara::python
