#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/colour.h"
#include "ui/control.h"
#include "ui/moving_keys.h"

namespace desk {

/// One line of a combo or list.
struct Item {
    std::string text;
    long data = 0;
    std::optional<Colour> colour;  ///< painted as a small picture before the text
};

/// What combo and list share: lines that are filled in one batch.
class ItemHolder : public Control {
  public:
    using Control::Control;

    const std::vector<Item>& items() const { return items_; }
    int count() const { return static_cast<int>(items_.size()); }
    void addItem(std::string_view text, long data = 0, std::optional<Colour> colour = {});
    /// Nothing is selected afterwards. Fails with 380 when there is no such line.
    void removeItem(int line);
    void clear();
    /// The line that reads exactly `text`, -1 when there is none.
    int find(std::string_view text) const;

    /// Between the two, observers are not told; afterwards once.
    void beginUpdate() { ++updating_; }
    void endUpdate();

    Signal<> itemsChanged;

  protected:
    /// The lines have changed in such a way that a selection may point at nothing.
    virtual void forgetSelection() = 0;
    void tellItemsChanged();

    std::vector<Item> items_;

  private:
    int updating_ = 0;
};

/// A drop-down list of which at most one line is selected. A new selection raises `selected`, whoever made
/// it.
class ComboBox : public ItemHolder {
  public:
    ComboBox(Place place, std::string name);

    /// -1 = none.
    int index() const { return index_; }
    /// Selects a line, or none with -1. Fails with 380 when there is no such line.
    void setIndex(int index);
    bool hasSelection() const { return index_ >= 0; }
    /// The selected line's text, empty without a selection.
    std::string_view text() const;
    const Item* selectedItem() const;

    /// What a person does: picks the line with that text; nothing while disabled or hidden. False if there is
    /// none.
    bool pick(std::string_view text);
    /// As pick(), by position.
    void pick(int index);

    Signal<> selected;

  private:
    void forgetSelection() override { index_ = -1; }

    int index_ = -1;
};

/// How many lines of a list can be selected.
enum class ListStyle { single, multiple };

class ListBox : public ItemHolder {
  public:
    ListBox(Place place, std::string name, ListStyle style = ListStyle::single);

    ListStyle style() const { return style_; }
    bool isSelected(int line) const;
    void setSelected(int line, bool selected);
    /// All lines of a multiple list, told of once.
    void setAllSelected(bool selected);
    void clearSelection();
    /// The first selected line, -1 without one.
    int index() const;
    /// Texts of the selected lines, in list order.
    std::vector<std::string> selectedTexts() const;

    /// A person's click: selects the line (of a multiple list: toggles it). Nothing while disabled or hidden.
    void click(int line);
    void doubleClick(int line);
    /// The keys have gone to the line: a click, or a selection alone. For a single list; in a multiple one
    /// keys move without marking.
    void moveTo(int line);

    MovingKeys movingKeys() const { return movingKeys_; }
    void setMovingKeys(MovingKeys keys) { movingKeys_ = keys; }

    std::string hint;  ///< what to do first, read where the list has no lines

    Signal<int> clicked;
    Signal<int> doubleClicked;
    Signal<> selectionChanged;

  private:
    void forgetSelection() override { selected_.clear(); }

    ListStyle style_;
    MovingKeys movingKeys_ = MovingKeys::click;
    std::vector<bool> selected_;
};

/// Titles of which one is current. A new current tab raises `selected`.
class TabStrip : public Control {
  public:
    TabStrip(Place place, std::string name, std::vector<std::string> titles);

    const std::vector<std::string>& titles() const { return titles_; }
    int index() const { return index_; }
    void setIndex(int index);

    /// A person's click on a title.
    void click(int index);

    Signal<> selected;

  private:
    std::vector<std::string> titles_;
    int index_ = 0;
};

/// The line at a screen's foot, in panels.
class StatusBar : public Control {
  public:
    StatusBar(Place place, std::string name, int panels);

    int panelCount() const { return static_cast<int>(panels_.size()); }
    /// Panels are counted from 0.
    const std::string& panel(int index) const { return panels_.at(static_cast<std::size_t>(index)); }
    void setPanel(int index, std::string_view text);

  private:
    std::vector<std::string> panels_;
};

}  // namespace desk
