#include "ui/choices.h"

#include <algorithm>

#include "base/failure.h"

namespace desk {

namespace {

constexpr long invalidProperty = 380;

bool has(const std::vector<Item>& items, int line) {
    return line >= 0 && line < static_cast<int>(items.size());
}

}  // namespace

void ItemHolder::addItem(std::string_view text, long data, std::optional<Colour> colour) {
    items_.push_back({std::string(text), data, colour});
    tellItemsChanged();
}

void ItemHolder::removeItem(int line) {
    if (!has(items_, line)) throw RuntimeFailure(invalidProperty, "无效的属性值");
    items_.erase(items_.begin() + line);
    forgetSelection();
    tellItemsChanged();
}

void ItemHolder::clear() {
    items_.clear();
    forgetSelection();
    tellItemsChanged();
}

int ItemHolder::find(std::string_view text) const {
    const auto found =
        std::find_if(items_.begin(), items_.end(), [&](const Item& item) { return item.text == text; });
    return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

void ItemHolder::endUpdate() {
    --updating_;
    tellItemsChanged();
}

void ItemHolder::tellItemsChanged() {
    if (updating_ == 0) itemsChanged();
}

ComboBox::ComboBox(Place place, std::string name) : ItemHolder(place, std::move(name)) {}

void ComboBox::setIndex(int index) {
    if (index < -1 || index >= count()) throw RuntimeFailure(invalidProperty, "无效的属性值");
    if (set(index_, index)) selected();
}

std::string_view ComboBox::text() const {
    const Item* item = selectedItem();
    return item != nullptr ? std::string_view(item->text) : std::string_view{};
}

const Item* ComboBox::selectedItem() const {
    return has(items_, index_) ? &items_[static_cast<std::size_t>(index_)] : nullptr;
}

bool ComboBox::pick(std::string_view text) {
    const int line = find(text);
    if (line < 0) return false;
    pick(line);
    return true;
}

void ComboBox::pick(int index) {
    if (!usable()) return;
    // A person who picks the line that stands there already has picked all the same.
    if (index == index_)
        selected();
    else
        setIndex(index);
}

ListBox::ListBox(Place place, std::string name, ListStyle style)
    : ItemHolder(place, std::move(name)), style_(style) {}

bool ListBox::isSelected(int line) const {
    return line >= 0 && line < static_cast<int>(selected_.size()) &&
           selected_[static_cast<std::size_t>(line)];
}

void ListBox::setSelected(int line, bool selected) {
    if (!has(items_, line)) throw RuntimeFailure(invalidProperty, "无效的属性值");
    if (isSelected(line) == selected) return;
    if (style_ == ListStyle::single) selected_.clear();
    selected_.resize(items_.size());
    selected_[static_cast<std::size_t>(line)] = selected;
    selectionChanged();
}

void ListBox::setAllSelected(bool selected) {
    if (!selected) return clearSelection();
    const std::vector<bool> all(items_.size(), true);
    if (selected_ == all) return;
    selected_ = all;
    selectionChanged();
}

void ListBox::clearSelection() {
    if (index() < 0) return;
    selected_.clear();
    selectionChanged();
}

int ListBox::index() const {
    const auto found = std::find(selected_.begin(), selected_.end(), true);
    return found == selected_.end() ? -1 : static_cast<int>(found - selected_.begin());
}

std::vector<std::string> ListBox::selectedTexts() const {
    std::vector<std::string> texts;
    for (int line = 0; line < count(); ++line)
        if (isSelected(line)) texts.push_back(items_[static_cast<std::size_t>(line)].text);
    return texts;
}

void ListBox::click(int line) {
    if (!usable() || !has(items_, line)) return;
    setSelected(line, style_ == ListStyle::single || !isSelected(line));
    clicked(line);
}

void ListBox::doubleClick(int line) {
    if (usable() && has(items_, line)) doubleClicked(line);
}

void ListBox::moveTo(int line) {
    if (movingKeys_ == MovingKeys::click) return click(line);
    if (usable() && has(items_, line)) setSelected(line, true);
}

TabStrip::TabStrip(Place place, std::string name, std::vector<std::string> titles)
    : Control(place, std::move(name)), titles_(std::move(titles)) {}

void TabStrip::setIndex(int index) {
    if (index < 0 || index >= static_cast<int>(titles_.size()))
        throw RuntimeFailure(invalidProperty, "无效的属性值");
    if (set(index_, index)) selected();
}

void TabStrip::click(int index) {
    if (usable()) setIndex(index);
}

StatusBar::StatusBar(Place place, std::string name, int panels)
    : Control(place, std::move(name)), panels_(static_cast<std::size_t>(panels)) {}

void StatusBar::setPanel(int index, std::string_view text) {
    set(panels_.at(static_cast<std::size_t>(index)), text);
}

}  // namespace desk
