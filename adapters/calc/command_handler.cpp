#include "adapters/calc/command_handler.hpp"

#include <algorithm>
#include <com/sun/star/awt/MessageBoxButtons.hpp>
#include <com/sun/star/awt/Toolkit.hpp>
#include <com/sun/star/awt/XMessageBoxFactory.hpp>
#include <com/sun/star/frame/FeatureStateEvent.hpp>
#include <cppuhelper/supportsservice.hxx>

#include "adapters/calc/analysis_dialog.hpp"
#include "adapters/calc/main_thread.hpp"
#include "adapters/calc/office_language.hpp"

namespace TBVNonPara::calc {

namespace {

constexpr auto protocol = "org.tbvnonpara.calc:";
constexpr auto openDialog = "dialog";

void askForRestart(const Context& context, const Reference<css::frame::XFrame>& frame) {
    const DialogTexts& texts = dialogTexts(languageOfTheOffice(context));
    const Reference<css::awt::XMessageBoxFactory> boxes(css::awt::Toolkit::create(context),
                                                        css::uno::UNO_QUERY_THROW);
    boxes
        ->createMessageBox(query<css::awt::XWindowPeer>(frame->getContainerWindow()),
                           css::awt::MessageBoxType_INFOBOX, css::awt::MessageBoxButtons::BUTTONS_OK,
                           fromUtf8(texts.title), fromUtf8(texts.restart))
        ->execute();
}

}  // namespace

void CommandHandler::initialize(const css::uno::Sequence<css::uno::Any>& arguments) {
    if (arguments.hasElements()) {
        arguments[0] >>= m_Frame;
    }
}

Reference<css::frame::XDispatch> CommandHandler::queryDispatch(const css::util::URL& url, const OUString&,
                                                               sal_Int32) {
    const bool ours = url.Protocol.equalsAscii(protocol) && url.Path.equalsAscii(openDialog);
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

void CommandHandler::dispatch(const css::util::URL&, const css::uno::Sequence<css::beans::PropertyValue>&) {
    if (!m_Frame.is()) {
        return;
    }
    if (!isInsideOffice()) {
        askForRestart(m_Context, m_Frame);
        return;
    }
    // Not at once: a macro or another process may be asking, on whatever thread.
    whenIdle(m_Context, [context = m_Context, frame = m_Frame] { AnalysisDialog::openFor(context, frame); });
}

/// The entry is always there to be chosen.
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
