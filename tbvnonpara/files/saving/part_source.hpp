#pragma once

#include <cstddef>
#include <exception>
#include <memory>
#include <string>

struct zip_source;

namespace TBVNonPara::workbook {

/// Makes a part piece by piece, so that a large one never stands in memory as a whole.
class PartMaker {
 public:
    PartMaker() = default;
    PartMaker(const PartMaker&) = delete;
    PartMaker& operator=(const PartMaker&) = delete;
    virtual ~PartMaker() = default;

    /// How many bytes there are in all.
    [[nodiscard]] virtual std::size_t size() const = 0;
    /// The next piece, empty at the end; then it begins again.
    virtual void next(std::string& piece) = 0;
};

/// A part in the making as the archive library reads it.
class PartSource {
 public:
    explicit PartSource(std::unique_ptr<PartMaker> maker) : m_Maker(std::move(maker)) {}
    PartSource(const PartSource&) = delete;
    PartSource& operator=(const PartSource&) = delete;

    /// A source on this part, which must outlive it; none when there is no memory for it.
    [[nodiscard]] zip_source* open();
    /// Raises the error that ended the making, if one did.
    void rethrow() const;

 private:
    friend struct PartSourceCalls;

    std::unique_ptr<PartMaker> m_Maker;
    std::string m_Piece;
    std::size_t m_Position = 0;
    bool m_Ended = false;
    std::exception_ptr m_Error;
};

}  // namespace TBVNonPara::workbook
