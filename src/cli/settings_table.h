#pragma once

#include <optional>
#include <string>

#include "app/frmOrvalent.h"
#include "catalogue/radio_texts.h"

namespace quillmark {

// What the rows of the main window show, as tables and as values. Texts are Latin-1.

// The rows in view, by tab and in the order in which they stand there; lines end with "\n".
std::string SettingsTable(const frmOrvalent& main);

// The value in the radio's reply, without its word and unit; nothing where there is none.
std::optional<std::string> ValueIn(const Setting& setting, const std::string& reply);
// Whether it is another one than the default set gives; nothing where that gives none.
std::optional<bool> ChangedFromFactory(const Setting& setting, const std::string& reply);

}  // namespace quillmark
