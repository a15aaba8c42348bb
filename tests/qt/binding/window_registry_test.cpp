#include "qt/binding/window_registry.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLineEdit>
#include <QWidget>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <stdexcept>
#include <string>

#include "qt/binding/binder.h"
#include "qt/window_forms.h"

namespace quillmark {
namespace {

using Names = std::set<std::string>;

Names DrawnForms() {
  Names names;
  for (const auto& file : std::filesystem::directory_iterator(QUILLMARK_SOURCE "/qt/forms")) {
    if (file.path().extension() == ".ui") names.insert(file.path().stem());
  }
  return names;
}

// The first base of each class that a header declares.
std::map<std::string, std::string> BasesOfClasses() {
  static const std::regex declaration(R"((?:class|struct) (\w+)(?: final)? : (?:public )?(\w+))");
  std::map<std::string, std::string> bases;
  for (const auto& file : std::filesystem::recursive_directory_iterator(QUILLMARK_SOURCE)) {
    if (file.path().extension() != ".h") continue;
    std::ifstream in(file.path());
    const std::string text(std::istreambuf_iterator<char>(in), {});
    for (std::sregex_iterator at(text.begin(), text.end(), declaration), end; at != end; ++at) {
      bases[(*at)[1]] = (*at)[2];
    }
  }
  return bases;
}

// The classes that come from Form and that no other class is made from.
Names FormClasses() {
  const auto bases = BasesOfClasses();
  Names names;
  for (const auto& [name, base] : bases) {
    std::string root = base;
    while (bases.contains(root) && root != "Form") root = bases.at(root);
    if (root == "Form") names.insert(name);
  }
  for (const auto& [name, base] : bases) names.erase(base);
  return names;
}

TEST(WindowRegistry, HasEachFormClassAndEachDrawnForm) {
  const Names classes = FormClasses();
  const Names drawn = DrawnForms();
  for (const std::string& name : classes) {
    EXPECT_NE(WindowNamed(name), nullptr) << name << " comes from Form, but has no row";
  }
  for (const std::string& name : drawn) {
    EXPECT_NE(WindowNamed(name), nullptr) << name << ".ui is drawn, but has no row";
  }
  for (const WindowRow& row : AllWindows()) {
    const std::string name(row.Name);
    EXPECT_TRUE(classes.contains(name)) << name << " has a row, but no class in the logic";
    EXPECT_TRUE(drawn.contains(name)) << name << " has a row, but no form";
  }
}

struct NoActs : Acts {
  void Act(const std::function<void()>&) override {}
  void ActAfterwards(const std::function<void()>&) override {}
};

std::string MisfitsOf(const WindowRow& row, Form& form, QWidget& window) {
  NoActs acts;
  Binder binder(form, window, acts, row.Paints);
  try {
    binder.Join();
  } catch (const std::logic_error& misfit) {
    return misfit.what();
  }
  return "";
}

TEST(WindowRegistry, EachWindowFitsItsForm) {
  IdleProgram program;
  for (const WindowRow& row : AllWindows()) {
    SCOPED_TRACE(std::string(row.Name));
    const auto form = program.Forms.Make(std::string(row.Name));
    ASSERT_NE(form, nullptr) << "tests/qt/window_forms.h does not make it";
    EXPECT_EQ(form->Name(), row.Name);
    const std::unique_ptr<QWidget> window(MakeWindow(row, nullptr));
    EXPECT_EQ(window->objectName().toStdString(), row.Name);
    EXPECT_EQ(MisfitsOf(row, *form, *window), "");
    // What can be acted on by keyboard is told to who can't see it.
    for (QLineEdit* line : window->findChildren<QLineEdit*>()) {
      EXPECT_NE(QAccessible::queryAccessibleInterface(line)->text(QAccessible::Name), "")
          << line->objectName().toStdString();
    }
  }
}

TEST(WindowRegistry, TellsWhatARowNamesAndTheWindowLacks) {
  for (const bool escape : {false, true}) {
    WindowRow row = *WindowNamed("frmViewer");
    (escape ? row.EscapeClicks : row.DefaultButton) = "cmdGone";
    try {
      delete MakeWindow(row, nullptr);
      ADD_FAILURE();
    } catch (const std::logic_error& missing) {
      EXPECT_STREQ(missing.what(), "The window frmViewer has no cmdGone");
    }
  }
}

}  // namespace
}  // namespace quillmark
