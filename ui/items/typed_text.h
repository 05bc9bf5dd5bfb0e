#pragma once

#include <QString>

#include "ui/form/control.h"

namespace calyx::ui {

// Reads a text for a parameter as if it had been typed into its control; a choice by its words or its key.
form::Entry ReadTyped(const form::Parameter& parameter, const ResourceTexts& texts, const QString& typed);

}  // namespace calyx::ui
