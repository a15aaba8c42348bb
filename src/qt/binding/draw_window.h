#pragma once

#include <QDialog>

class QTabBar;
class QWidget;

namespace quillmark {

// How the smaller windows are made from their forms, for the registry of windows. `parent` owns
// each window, or the caller when that is null.

// Gives each widget with a property "widthInCharacters" that least width. A form can't measure in
// characters.
void WidenByCharacters(QWidget& window);

// Ctrl+Tab and Ctrl+Shift+Tab go from tab to tab, round the end.
void AddTabKeys(QDialog& window, QTabBar& tabs);

// A dialog that its form holds whole. `Drawn` is the class that is made from the form.
template <class Drawn>
QWidget* DrawDialog(QWidget* parent) {
  auto* window = new QDialog(parent);
  Drawn ui;
  ui.setupUi(window);
  WidenByCharacters(*window);
  return window;
}

// The window with the program's name, without a frame.
QWidget* DrawSplash(QWidget* parent);

// The window of the radio history, with its keys and its context menu.
QWidget* DrawHistory(QWidget* parent);

// The window that shows a file, with its bar to find words.
QWidget* DrawViewer(QWidget* parent);

}  // namespace quillmark
