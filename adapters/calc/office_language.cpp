#include "adapters/calc/office_language.hpp"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/configuration/theDefaultProvider.hpp>
#include <com/sun/star/container/XNameAccess.hpp>

namespace TBVNonPara::calc {

std::string languageOfTheOffice(const Context& context) {
    const auto provider = css::configuration::theDefaultProvider::get(context);
    const css::beans::PropertyValue path("nodepath", 0, css::uno::Any(OUString("/org.openoffice.Setup/L10N")),
                                         css::beans::PropertyState_DIRECT_VALUE);
    const Reference<css::container::XNameAccess> settings(
        provider->createInstanceWithArguments("com.sun.star.configuration.ConfigurationAccess",
                                              sequenceOf(css::uno::Any(path))),
        css::uno::UNO_QUERY_THROW);
    OUString language;
    settings->getByName("ooLocale") >>= language;
    return toUtf8(language);
}

}  // namespace TBVNonPara::calc
