#include "adapters/calc/command_handler.hpp"

#include <algorithm>
#include <com/sun/star/frame/FeatureStateEvent.hpp>
#include <cppuhelper/supportsservice.hxx>

#include "adapters/calc/analysis_dialog.hpp"
#include "adapters/calc/main_thread.hpp"
#include "adapters/calc/message_box.hpp"
#include "adapters/calc/office_language.hpp"
#include "adapters/calc/test_again.hpp"

namespace TBVNonPara::calc {

namespace {

constexpr auto protocol = "org.tbvnonpara.calc:";
constexpr auto openDialog = "dialog";
constexpr auto again = "again";

}  // namespace

void CommandHandler::initialize(const css::uno::Sequence<css::uno::Any>& arguments) {
    if (arguments.hasElements()) {
        arguments[0] >>= m_Frame;
    }
}

Reference<css::frame::XDispatch> CommandHandler::queryDispatch(const css::util::URL& url, const OUString&,
                                                               sal_Int32) {
    const bool ours = url.Protocol.equalsAscii(protocol) &&
                      (url.Path.equalsAscii(openDialog) || url.Path.equalsAscii(again));
    return ours ? Reference<css::frame::XDispatch>(this) : nullptr;
}

css::uno::Sequence<Reference<css::frame::XDispatch>> CommandHandler::queryDispatches(
    const css::uno::Sequence<css::frame::DispatchDescriptor>& requests) {
    css::uno::Sequence<Reference<css::frame::XDispatch>> found(requests.getLength());
    std::transform(requests.begin(), requests.end(), found.getArray(),
                   [this](const css::frame::DispatchDescriptor& request) {
                       return queryDispatch(request.FeatureURL, request.FrameName, request.SearchFlags);
                   });
    return found;
}

void CommandHandler::dispatch(const css::util::URL& url,
                              const css::uno::Sequence<css::beans::PropertyValue>&) {
    if (!m_Frame.is()) {
        return;
    }
    if (!isInsideOffice()) {
        tell(m_Context, m_Frame, dialogTexts(languageOfTheOffice(m_Context)).restart);
        return;
    }
    // Not at once: a macro or another process may be asking, on whatever thread.
    const auto carryOut = url.Path.equalsAscii(again) ? &TestAgain::in : &AnalysisDialog::openFor;
    whenIdle(m_Context, [=, context = m_Context, frame = m_Frame] { carryOut(context, frame); });
}

/// The entries are always there to be chosen.
void CommandHandler::addStatusListener(const Reference<css::frame::XStatusListener>& listener,
                                       const css::util::URL& url) {
    css::frame::FeatureStateEvent state;
    state.Source = static_cast<cppu::OWeakObject*>(this);
    state.FeatureURL = url;
    state.IsEnabled = true;
    listener->statusChanged(state);
}

OUString CommandHandler::getImplementationName() {
    return OUString::createFromAscii(implementationName);
}

sal_Bool CommandHandler::supportsService(const OUString& service) {
    return cppu::supportsService(this, service);
}

css::uno::Sequence<OUString> CommandHandler::getSupportedServiceNames() {
    return sequenceOf(OUString::createFromAscii(serviceName));
}

}  // namespace TBVNonPara::calc
