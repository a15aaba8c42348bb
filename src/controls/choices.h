#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "controls/control.h"

namespace quillmark {

// What is drawn beside an item of a list, and is no part of its text.
struct ItemNote {
  std::string Text;
  bool Muted = false;  // the item and its note: what it stands for is not there
  bool operator==(const ItemNote&) const = default;
};

// A list to choose from; with `Editable`, one may also type another text.
class ListBox : public Control {
 public:
  ListBox(Form& form, Control* container, std::string name, std::vector<std::string> items = {})
      : Control(form, container, std::move(name)), Items(*this, std::move(items)) {}

  Property<std::vector<std::string>> Items;
  Property<std::vector<std::string>> ItemTips{*this, {}};       // tool tips, item by item
  Property<std::vector<ItemNote>> ItemNotes{*this, {}};         // item by item
  Property<std::vector<std::uint32_t>> ItemColours{*this, {}};  // swatches, &HBBGGRR, item by item
  Property<bool> Editable{*this, false};

  // From 0; -1 when none is chosen.
  int ListIndex() const { return listIndex; }
  void SetListIndex(int index);
  // The text of the chosen item, or what was typed.
  const std::string& Text() const { return text; }
  void SetText(std::string next);

  std::function<void()> OnChange;

  // The user's acts; false when the list can't be reached or has no such item.
  bool UserSelect(int index);
  bool UserEdit(std::string next);

 private:
  int listIndex = -1;
  std::string text;
};

// A slider or a progress bar: a whole number within bounds.
class Scale : public Control {
 public:
  Scale(Form& form, Control* container, std::string name, int min, int max, int value)
      : Control(form, container, std::move(name)),
        Min(*this, min),
        Max(*this, max),
        Value(*this, value) {}

  Property<int> Min;
  Property<int> Max;
  Property<int> Value;
};

// A scale that the user moves.
class Slider : public Scale {
 public:
  using Scale::Scale;

  int SmallChange = 1;
  int LargeChange = 5;

  // The user's act, held within the bounds; false when the slider can't be reached.
  bool UserSlide(int value);
};

// A scale that shows how far something has come.
class ProgressBar : public Scale {
 public:
  using Scale::Scale;

  Property<std::string> Doing{*this, ""};  // what comes that far, "Reading"; may be empty
};

// Tabs over frames.
class TabStrip : public Control {
 public:
  TabStrip(Form& form, Control* container, std::string name, std::vector<std::string> tabs)
      : Control(form, container, std::move(name)), Tabs(std::move(tabs)) {}

  const std::vector<std::string> Tabs;
  Property<int> SelectedIndex{*this, 1};  // from 1
  // Shown behind the captions, tab by tab; 0 and what is missing show nothing.
  Property<std::vector<int>> Counts{*this, {}};
  // The caption of a tab, from 0, with its count: "Network (3)".
  std::string Caption(std::size_t tab) const;

  std::function<void()> OnClick;

  // The user's choice of a tab, from 1; false when it can't be reached.
  bool UserSelect(int index);
};

}  // namespace quillmark
