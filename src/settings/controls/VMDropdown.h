#pragma once

#include <QImage>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace velmora {

class PillMenu;
class PulldownPill;

/// A pill that shows the title of the selected value, and a menu of all values. It shows what it is told: a
/// pick calls the action with the value, and the pill's title changes when the selection is set again.
/// The size is the caller's: `setFixedSize`.
class VMDropdown final : public QWidget {
public:
    struct Option {
        std::string value;
        std::string title;  ///< UTF-8.
        friend bool operator==(const Option&, const Option&) = default;
    };
    /// Images by value; an option without one has only its title. Their device pixel ratio counts.
    using Images = std::map<std::string, QImage>;

    explicit VMDropdown(QWidget* parent = nullptr);
    ~VMDropdown() override;

    /// Options and images also change in a menu that is open, which keeps its place and highlight.
    void setOptions(std::vector<Option> options);
    void setOptionImages(Images images);
    /// A value that no option has shows an empty pill.
    void setSelection(const std::string& value);
    const std::string& selection() const { return m_selection; }
    const std::vector<Option>& options() const { return m_options; }

    /// Called with the picked option's value, also when it is the selected one.
    void onPick(std::function<void(const std::string& value)> pick) { m_onPick = std::move(pick); }
    /// Called before the menu is made, so that costly images are made only when they are seen.
    void onOpen(std::function<void()> open) { m_onOpen = std::move(open); }

    bool isOpen() const;
    PulldownPill& pill() const { return *m_pill; }
    /// The menu while it is open, else null.
    PillMenu* menu() const;

    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void pressed();
    void picked(int tag);
    QString titleOfSelection() const;
    void refresh();

    std::vector<Option> m_options;
    Images m_optionImages;
    std::string m_selection;
    std::function<void(const std::string&)> m_onPick;
    std::function<void()> m_onOpen;
    PulldownPill* m_pill;
    QPointer<PillMenu> m_menu;
};

}  // namespace velmora
