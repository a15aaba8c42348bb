#pragma once

#include "cli/batch/batch_options.h"
#include "cli/command.h"

namespace quillmark {

// Serves one port of a batch until its parent ends it: waits for a radio, asks the parent whether
// to go, programs the radio, reports, and waits for the next one. A radio is the next one when it
// has another serial number, or when the device went away and came back.
Exit ServePort(const GlobalOptions& options, const BatchOptions& batch);

}  // namespace quillmark
