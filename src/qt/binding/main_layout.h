#pragma once

class QMainWindow;

namespace Ui {
class frmOrvalent;
}

namespace quillmark {

// How the main window shares its room: between the terminal and the lower half, and in that between
// the general rows and the view with the tasks or the tabs. The user moves both borders. What lacks
// room scrolls, and the tasks stand on two columns in place of three. Hiding the terminal takes its
// height off the window. Called once, when the form is drawn and its toolbar is filled.
void ShareRoom(QMainWindow& window, const Ui::frmOrvalent& ui);

}  // namespace quillmark
