#include "tbvnonpara/files/read_ahead.hpp"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace TBVNonPara::workbook {

namespace {

class ReadAhead final : public PartStream {
 public:
    explicit ReadAhead(std::unique_ptr<PartStream> part) : m_Part(std::move(part)) {}
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;
    ~ReadAhead() override {
        if (m_Thread) {
            {
                const std::lock_guard lock(m_Mutex);
                m_Unwanted = true;
            }
            m_Changed.notify_all();
            m_Thread->join();
        }
    }

    std::size_t read(char* buffer, std::size_t size) override {
        if (m_At == m_Piece.size()) {
            next();
        }
        const std::size_t count = std::min(size, m_Piece.size() - m_At);
        std::copy_n(m_Piece.data() + m_At, count, buffer);
        m_At += count;
        return count;
    }

 private:
    using Piece = std::vector<char>;
    static constexpr std::size_t pieceSize = std::size_t(1) << 18U;
    static constexpr std::size_t mostWaiting = 4;

    /// An empty one at the end.
    Piece unpack() {
        Piece piece(pieceSize);
        std::size_t filled = 0;
        while (filled < pieceSize) {
            const std::size_t count = m_Part->read(piece.data() + filled, pieceSize - filled);
            if (count == 0) {
                break;
            }
            filled += count;
        }
        piece.resize(filled);
        return piece;
    }

    void next() {
        m_At = 0;
        if (!m_Thread) {
            m_Piece = unpack();
            if (m_Piece.size() == pieceSize) {
                m_Thread.emplace([this] { unpackAll(); });
            }
            return;
        }
        std::unique_lock lock(m_Mutex);
        m_Changed.wait(lock, [this] { return !m_Waiting.empty() || m_Ended; });
        m_Piece.clear();
        if (!m_Waiting.empty()) {
            m_Piece = std::move(m_Waiting.front());
            m_Waiting.pop_front();
            m_Changed.notify_all();
        } else if (m_Failure) {
            std::rethrow_exception(m_Failure);
        }
    }

    void unpackAll() noexcept {
        std::exception_ptr failure;
        try {
            for (Piece piece = unpack(); !piece.empty(); piece = unpack()) {
                std::unique_lock lock(m_Mutex);
                m_Changed.wait(lock, [this] { return m_Waiting.size() < mostWaiting || m_Unwanted; });
                if (m_Unwanted) {
                    return;
                }
                m_Waiting.push_back(std::move(piece));
                m_Changed.notify_all();
            }
        } catch (...) {
            failure = std::current_exception();
        }
        const std::lock_guard lock(m_Mutex);
        m_Failure = failure;
        m_Ended = true;
        m_Changed.notify_all();
    }

    std::unique_ptr<PartStream> m_Part;
    Piece m_Piece;
    std::size_t m_At = 0;
    std::mutex m_Mutex;
    std::condition_variable m_Changed;
    std::deque<Piece> m_Waiting;
    bool m_Ended = false;
    bool m_Unwanted = false;
    std::exception_ptr m_Failure;
    std::optional<std::thread> m_Thread;
};

}  // namespace

std::unique_ptr<PartStream> readAhead(std::unique_ptr<PartStream> part) {
    return std::make_unique<ReadAhead>(std::move(part));
}

}  // namespace TBVNonPara::workbook
