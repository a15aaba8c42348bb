#pragma once

#include <QObject>
#include <QString>

#include "platform/desktop.h"
#include "qt/desktop/desktop_scheme.h"

namespace quillmark {

// Gives all windows the theme that the user wants, at once. A desktop's own dark or light colours
// are used where they are what is wanted; else the program has its own. Colours in which a text
// could not be read are changed in either case. Made once by the program, after the application.
class ThemeSetter : public QObject {
  Q_OBJECT

 public:
  ThemeSetter();

  void Use(Theme next);

 private:
  void Apply();

  DesktopScheme scheme;
  Theme wanted = Theme::AsDesktop;
  QString usualStyle;
};

}  // namespace quillmark
