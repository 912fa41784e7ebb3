#pragma once

#include <array>
#include <com/sun/star/awt/XActionListener.hpp>
#include <com/sun/star/awt/XControl.hpp>
#include <com/sun/star/awt/XControlContainer.hpp>
#include <com/sun/star/awt/XItemListener.hpp>
#include <com/sun/star/awt/XKeyListener.hpp>
#include <com/sun/star/awt/XMouseListener.hpp>
#include <com/sun/star/awt/XTextListener.hpp>
#include <com/sun/star/awt/XTopWindowListener.hpp>
#include <com/sun/star/awt/XWindow.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <span>
#include <string>
#include <string_view>

#include "adapters/calc/dialog_texts.hpp"
#include "adapters/calc/documents.hpp"

namespace TBVNonPara::calc {

/// The fields that something is typed into: all but one take a range.
enum class Field { First, Second, Groups, Blocks, Output, Confidence, None };

constexpr std::array dataFields{Field::First, Field::Second, Field::Groups, Field::Blocks};
constexpr std::array rangeFields{Field::First, Field::Second, Field::Groups, Field::Blocks, Field::Output};

/// Where messages are shown: below a field, and for none of them above the buttons.
constexpr std::array messagePlaces{Field::First,  Field::Second,     Field::Groups, Field::Blocks,
                                   Field::Output, Field::Confidence, Field::None};

/// The names of the controls that something is asked of.
namespace controls {
constexpr auto test = "Test";
constexpr auto alternative = "Alternative";
constexpr auto groupsInColumn = "GroupsInColumn";
constexpr auto groups = "GroupTicks";
constexpr auto moveUp = "MoveUp";
constexpr auto moveDown = "MoveDown";
constexpr auto missing = "Missing";
constexpr auto visibleRows = "VisibleRows";
constexpr auto newSheet = "NewSheet";
constexpr auto cell = "Cell";
constexpr auto overwrite = "OverWrite";
constexpr auto labels = "Labels";
constexpr auto descriptives = "Descriptives";
constexpr auto ignoreTies = "IgnoreTies";
constexpr auto details = "Details";
constexpr auto adjustment = "Adjustment";
constexpr auto picture = "Picture";
constexpr auto live = "Live";
constexpr auto run = "Run";
constexpr auto close = "Close";
constexpr auto help = "Help";
}  // namespace controls

/// What a dialog shows at the moment besides the texts in its fields.
struct DialogState {
    bool alternatives = true;
    bool longTableOffered = true;
    bool longTable = false;
    bool blocks = false;
    bool secondRange = true;
    bool missing = false;
    bool hiddenRows = false;
    bool ignoreTies = false;
    bool details = false;
    bool comparisons = false;
    bool live = true;  ///< whether figures can follow the data
    bool outputCell = false;
    bool running = false;
};

/// The window: its controls from top to bottom, laid out anew when some of them come or go.
class DialogView {
 public:
    DialogView(const Context& context, const DialogTexts& texts);

    /// Makes the window, unseen: what it holds is arranged by the desktop's measures before it is shown.
    void create(const Reference<css::awt::XWindowPeer>& parent);
    void open(const Reference<css::awt::XWindowPeer>& parent);
    void close();
    void show(bool visible);
    void bringToFront();

    void listen(const Reference<css::awt::XActionListener>& actions,
                const Reference<css::awt::XItemListener>& items,
                const Reference<css::awt::XTextListener>& texts,
                const Reference<css::awt::XMouseListener>& mouse,
                const Reference<css::awt::XKeyListener>& keys,
                const Reference<css::awt::XTopWindowListener>& window);

    /// Shows and enables what belongs to a state, and places it.
    void arrange(const DialogState& state);

    [[nodiscard]] std::int32_t selected(const char* list) const;
    void select(const char* list, std::int32_t position);
    void fill(const char* list, std::span<const std::string_view> items);
    void fillWith(const char* list, std::span<const std::string> items);
    void showGroups(std::span<const std::string> lines, std::int32_t selected);
    /// The group that the list stands on; -1 for none.
    [[nodiscard]] std::int32_t selectedGroup() const;
    void setGroupsLabel(std::string_view label);
    /// Whether a place in the list of groups, in pixels from its left, is that of the ticks.
    [[nodiscard]] bool isAtTicks(std::int32_t left) const;
    [[nodiscard]] bool checked(const char* box) const;
    void check(const char* box, bool checked);

    [[nodiscard]] std::string text(Field field) const;
    void setText(Field field, std::string_view text);
    void setLabel(Field field, std::string_view label, std::string_view help);
    /// The message below a field; without a field, above the buttons. An empty one takes the place away.
    void setMessage(Field field, std::string_view message);
    void clearMessages();
    void setBoxLabel(const char* box, std::string_view label);
    void setCloseLabel(std::string_view label);
    void focus(Field field);

    /// Which field a button picks a range for.
    [[nodiscard]] static Field fieldOfPicker(const OUString& button);
    [[nodiscard]] static const char* nameOf(Field field);

 private:
    struct Place;

    /// How high the desktop's look draws things, in the dialog's units.
    struct Heights {
        std::int32_t row;
        std::int32_t box;
        std::int32_t button;
    };

    [[nodiscard]] static bool okComesFirst();
    [[nodiscard]] Heights heightsOfTheLook() const;
    void setMessageColour();
    void centreOn(const Reference<css::awt::XWindow>& parent);

    Reference<css::beans::XPropertySet> add(const char* kind, const OUString& name);
    [[nodiscard]] Reference<css::beans::XPropertySet> model(const OUString& name) const;
    void addLabelled(const char* kind, const char* name, std::string_view label);
    void addChoice(const char* name, std::string_view label);
    void addField(Field field, std::string_view label);
    void tellPicker(Field field, std::string_view label);
    void addGroups();
    void addIcon(const OUString& name, const char* icon, std::string_view help);
    void addBox(const char* kind, const char* name, std::string_view label);
    void addButton(const char* name, std::string_view label, std::int16_t type);
    void addButtons();
    void addControls();
    void set(const OUString& name, const char* property, const css::uno::Any& value) const;
    void place(const OUString& name, const Place& place) const;
    void hide(const OUString& name) const;
    void repaint() const;
    std::int32_t arrangeField(Field field, std::int32_t top, bool enabled);
    std::int32_t arrangeFieldIf(bool shown, Field field, std::int32_t top, bool enabled);
    std::int32_t arrangeGroups(bool shown, std::int32_t top, bool enabled);
    std::int32_t arrangeRanges(const DialogState& state, std::int32_t top);
    std::int32_t arrangeMessage(Field field, std::int32_t left, std::int32_t top);
    std::int32_t arrangeRowIf(bool shown, const char* name, std::int32_t top, bool enabled);
    std::int32_t arrangeBoxIf(bool shown, const char* name, std::int32_t top, bool enabled);
    std::int32_t arrangeBox(const char* name, std::int32_t top, bool enabled);
    std::int32_t arrangeButtons(std::int32_t top, bool idle);
    std::int32_t arrangeReport(std::int32_t top, const DialogState& state);
    std::int32_t arrangeDetails(std::int32_t top, const DialogState& state);
    [[nodiscard]] Reference<css::awt::XControl> control(const OUString& name) const;

    Context m_Context;
    const DialogTexts& m_Texts;
    Reference<css::lang::XMultiServiceFactory> m_Models;
    Reference<css::awt::XControl> m_Dialog;
    std::int16_t m_TabIndex = 0;
    bool m_OkFirst;
    Heights m_Heights{};
};

}  // namespace TBVNonPara::calc
