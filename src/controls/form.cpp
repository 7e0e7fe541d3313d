#include "controls/form.h"

#include <algorithm>
#include <utility>

#include "controls/key_table.h"
#include "controls/lookup_list.h"

namespace kebu::controls {

namespace {

void appendTree(Control& control, std::vector<Control*>& all) {
  all.push_back(&control);
  const auto* const group = as<GroupBox>(control);
  if (!group) return;
  for (Control* child : group->children()) appendTree(*child, all);
}

}  // namespace

Form::Form(std::string name, Desktop& desktop) : OfKind(std::move(name)), desktop_(desktop) {}

Form::~Form() {
  leaveScreen();
}

void Form::leaveScreen() noexcept {
  if (loaded_) ignoringErrors([&] { desktop_.hide(*this); });
  loaded_ = false;
}

void Form::add(Control& control) {
  outermost_.push_back(&control);
  listenTo(control);
}

void Form::addPage(GroupBox& page) {
  add(page);
  pages_.push_back(&page);
  if (page.isVisible()) visiblePages_.insert(visiblePages_.begin(), &page);
  coverPages();
  page.changed.on([this, &page] { stackPage(page); });
}

void Form::stackPage(GroupBox& page) {
  const auto at = std::ranges::find(visiblePages_, &page);
  const bool wasVisible = at != visiblePages_.end();
  if (page.isVisible() == wasVisible) return;
  if (wasVisible) {
    visiblePages_.erase(at);
  } else {
    visiblePages_.push_back(&page);
  }
  coverPages();
}

void Form::coverPages() {
  for (GroupBox* page : pages_) page->setCovered(page->isVisible() && page != pageInFront());
}

void Form::listenTo(Control& control) {
  auto* const group = as<GroupBox>(control);
  if (!group) return;
  for (Control* child : group->children()) listenTo(*child);
  group->ChildAdded.on([this](Control& child) {
    listenTo(child);
    changed.raise();
  });
}

std::vector<Control*> Form::controls() const {
  std::vector<Control*> all;
  for (Control* control : outermost_) appendTree(*control, all);
  return all;
}

void Form::moveTo(std::int32_t left, std::int32_t top) {
  left_ = left;
  top_ = top;
  changed.raise();
}

void Form::focusOn(Control& control) {
  focusWanted_ = &control;
  FocusWanted.raise(control);
}

Control* Form::find(std::string_view name) {
  for (Control* control : outermost_) {
    if (Control* const found = control->find(name)) return found;
  }
  return nullptr;
}

std::vector<BoundControl*> Form::boundControls() const {
  std::vector<BoundControl*> bound;
  for (Control* control : controls()) {
    auto* const candidate = as<BoundControl>(*control);
    if (candidate && candidate->frame()) bound.push_back(candidate);
  }
  return bound;
}

Button* Form::defaultButton() const {
  for (Control* control : outermost_) {
    auto* const button = as<Button>(*control);
    if (button && button->isDefault() && button->isVisible()) return button;
  }
  return nullptr;
}

Button* Form::buttonOfKey(std::string_view key) const {
  for (Control* control : outermost_) {
    auto* const button = as<Button>(*control);
    if (button && !key.empty() && button->key() == key && button->isVisible()) return button;
  }
  return nullptr;
}

void Form::translate(const Translator& translator) {
  for (Control* control : controls()) control->translate(translator);
  translator_ = translator;
}

std::string Form::translated(std::string_view text) const {
  return translator_ ? translator_(std::string(text)) : std::string(text);
}

void Form::showKeys() {
  std::vector<RowValues> rows;
  for (const KeyEntry& entry : keyTable) {
    std::string action = translated(entry.action);
    if (entry.place == KeyPlace::Grid) action = translated("in una griglia: ") + action;
    if (entry.place == KeyPlace::Summary) action = translated("nel riepilogo: ") + action;
    rows.emplace_back(std::vector<Value>{Value(translated(entry.keys)), Value(action)});
  }
  LookupList list(translated("Tasti"), {translated("Tasto"), translated("Che cosa fa")},
                  std::move(rows));
  list.setTexts({.search = translated("Cerca"),
                 .take = "",
                 .leave = translated("Chiudi"),
                 .nothingFound = translated("Nessun risultato")});
  desktop_.runLookup(list);
}

void Form::Show(bool modal) {
  if (!loaded_) {
    loaded_ = true;
    Form_Load();
  }
  desktop_.show(*this, [this] { Form_Activate(); });
  if (modal) desktop_.runModal(*this);
}

bool Form::Unload() {
  if (!loaded_) return true;
  bool cancel = false;
  Form_QueryUnload(cancel);
  if (cancel) return false;
  finishUnload();
  return true;
}

void Form::End() {
  if (loaded_) finishUnload();
}

void Form::finishUnload() {
  Form_Unload();
  loaded_ = false;
  desktop_.hide(*this);
}

}  // namespace kebu::controls
