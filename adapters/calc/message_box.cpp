#include "adapters/calc/message_box.hpp"

#include <com/sun/star/awt/MessageBoxButtons.hpp>
#include <com/sun/star/awt/MessageBoxResults.hpp>
#include <com/sun/star/awt/Toolkit.hpp>
#include <com/sun/star/awt/XMessageBoxFactory.hpp>
#include <com/sun/star/lang/XComponent.hpp>

#include "adapters/calc/dialog_texts.hpp"
#include "adapters/calc/office_language.hpp"

namespace TBVNonPara::calc {

namespace {

namespace Buttons = css::awt::MessageBoxButtons;

sal_Int16 show(const Context& context, const Reference<css::frame::XFrame>& frame,
               css::awt::MessageBoxType kind, sal_Int32 buttons, std::string_view words) {
    const DialogTexts& texts = dialogTexts(languageOfTheOffice(context));
    const Reference<css::awt::XMessageBoxFactory> boxes(css::awt::Toolkit::create(context),
                                                        css::uno::UNO_QUERY_THROW);
    const Reference<css::awt::XMessageBox> box =
        boxes->createMessageBox(query<css::awt::XWindowPeer>(frame->getContainerWindow()), kind, buttons,
                                fromUtf8(texts.title), fromUtf8(words));
    const sal_Int16 answer = box->execute();
    // Closed, it would stay a window for those who read the screen.
    query<css::lang::XComponent>(box)->dispose();
    return answer;
}

}  // namespace

void tell(const Context& context, const Reference<css::frame::XFrame>& frame, std::string_view words) {
    show(context, frame, css::awt::MessageBoxType_INFOBOX, Buttons::BUTTONS_OK, words);
}

void warn(const Context& context, const Reference<css::frame::XFrame>& frame, std::string_view words) {
    show(context, frame, css::awt::MessageBoxType_WARNINGBOX, Buttons::BUTTONS_OK, words);
}

bool ask(const Context& context, const Reference<css::frame::XFrame>& frame, std::string_view question) {
    constexpr sal_Int32 buttons = Buttons::BUTTONS_YES_NO + Buttons::DEFAULT_BUTTON_NO;
    return show(context, frame, css::awt::MessageBoxType_QUERYBOX, buttons, question) ==
           css::awt::MessageBoxResults::YES;
}

}  // namespace TBVNonPara::calc
