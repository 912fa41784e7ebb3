#include "tests/adapters/calc/service_host.hpp"

#include <TBVNonPara/AnalysisException.hpp>
#include <TBVNonPara/XclsNonPara.hpp>
#include <algorithm>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>

namespace TBVNonPara::Scenarios {

namespace {

using namespace TBVNonPara::calc;

/// The description in the text of an exception: "Error 1004: description (source)".
std::string descriptionIn(const AnalysisException& error) {
    const std::string text = toUtf8(error.Message);
    const std::string source = toUtf8(error.Source);
    const std::size_t begin = text.find(": ") + 2;
    const std::size_t end = text.size() - (source.empty() ? 0 : source.size() + 3);
    const std::string description = text.substr(begin, end - begin);
    return description == "Application-defined or object-defined error" ? "" : description;
}

/// One request of the installed service, with the same one on the embedded workbook beside it.
class ServiceRequest : public Request {
 public:
    ServiceRequest(const Reference<XclsNonPara>& service, std::unique_ptr<Request> embedded)
        : m_Service(service), m_Embedded(std::move(embedded)) {}

    void LetMethod(TBVNPMethod method) override {
        both([&] { m_Service->setMethod(method); }, [&] { m_Embedded->LetMethod(method); });
    }
    void LetHeaders(bool headers) override {
        both([&] { m_Service->setHeaders(headers); }, [&] { m_Embedded->LetHeaders(headers); });
    }
    void LetOutputDescriptives(bool wanted) override {
        both([&] { m_Service->setOutputDescriptives(wanted); },
             [&] { m_Embedded->LetOutputDescriptives(wanted); });
    }
    void LetIgnoreTies(bool ignoreTies) override {
        both([&] { m_Service->setIgnoreTies(ignoreTies); }, [&] { m_Embedded->LetIgnoreTies(ignoreTies); });
    }
    void LetTails(TBVNPTails tails) override {
        both([&] { m_Service->setTails(tails); }, [&] { m_Embedded->LetTails(tails); });
    }
    void LetYRange(std::string_view address) override {
        both([&] { m_Service->setYRange(fromUtf8(address)); }, [&] { m_Embedded->LetYRange(address); });
    }
    void LetXRange(std::string_view address) override {
        both([&] { m_Service->setXRange(fromUtf8(address)); }, [&] { m_Embedded->LetXRange(address); });
    }
    void LetOutputRange(std::string_view address) override {
        both([&] { m_Service->setOutputRange(fromUtf8(address)); },
             [&] { m_Embedded->LetOutputRange(address); });
    }
    void Results(bool OverWrite) override {
        both([&] { m_Service->Results(OverWrite); }, [&] { m_Embedded->Results(OverWrite); });
    }

 private:
    /// What counts is what the service does; where the other fails alone, its report will not be the same.
    void both(const auto& service, const auto& embedded) {
        try {
            embedded();
        } catch (const Error&) {
        }
        try {
            service();
        } catch (const AnalysisException& error) {
            throw Error(error.Number, descriptionIn(error), toUtf8(error.Source));
        }
    }

    Reference<XclsNonPara> m_Service;
    std::unique_ptr<Request> m_Embedded;
};

}  // namespace

ServiceHost::ServiceHost() : m_Embedded(workbook::makeApplication()) {
}

void ServiceHost::addSheet(std::string_view name, const ValueGrid& cells) {
    CalcHost::addSheet(name, cells);
    m_Embedded.addSheet(name, cells);
}

std::unique_ptr<Request> ServiceHost::createRequest() {
    const Reference<XclsNonPara> service(officeContext()->getServiceManager()->createInstanceWithContext(
                                             "TBVNonPara.clsNonPara", officeContext()),
                                         css::uno::UNO_QUERY_THROW);
    return std::make_unique<ServiceRequest>(service, m_Embedded.createRequest());
}

std::string ServiceHost::reportAddress() const {
    std::string wanted = m_Embedded.reportAddress();
    const auto selected = queryIfAny<css::sheet::XCellRangeAddressable>(
        query<css::frame::XModel>(document())->getCurrentSelection());
    if (wanted.empty() || !selected.is()) {
        return {};
    }
    const css::table::CellRangeAddress cell = selected->getRangeAddress();
    const SheetAreas report = cellsAt(wanted);
    const CellArea& block = report.areas.front();
    if (cell.Sheet == positionOf(report.sheet) && cell.StartColumn == block.left &&
        cell.StartRow == block.top) {
        return wanted;
    }
    const CellArea elsewhere{cell.StartColumn, cell.StartRow, cell.StartColumn + block.columns() - 1,
                             cell.StartRow + block.rows() - 1};
    std::string address = toUtf8(nameOf(sheetAt(document(), cell.Sheet))) + '!' + absoluteAddress(elsewhere);
    std::erase(address, '$');
    return address;
}

std::vector<std::string> ServiceHost::formatting() const {
    std::vector<std::string> calls = m_Embedded.formatting();
    if (!reportAddress().empty()) {
        std::ranges::copy(formatsLostAt(reportAddress()), std::back_inserter(calls));
    }
    return calls;
}

}  // namespace TBVNonPara::Scenarios
