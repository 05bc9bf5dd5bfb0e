#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "model/language/codec.h"
#include "model/scales/scale_fields.h"

namespace calyx {

// The line SC.SRC: "NONE", or a letter and the sources ("A,1,2"). The letter "S" stands for three kinds
// of scale; which one it is, the input type of the serial port says.

// The input type of a serial port, trimmed; empty for a port that does not exist.
using PortInput = std::function<std::string(int port)>;

// A junction box on a port, as one source number; boxes are 1 to 4. It is written "3.1": port 3, box 1.
std::int32_t VexalSource(int port, int box);
int VexalPort(std::int32_t source);
int VexalBox(std::int32_t source);

// The sources as they stand in the line, without the letter.
std::string SourceEntries(const ScaleFields& fields);
void AppendSource(std::string& out, const ScaleFields& fields);

// Takes a line over. For "S" the present kind stays if it is one of the three, otherwise the form of the
// source decides. A letter that nobody knows and more than 32 sources are not taken at all.
Taken TakeSource(ScaleFields& fields, std::string_view text);

// What the line means in a file: "S" on a port with another input type, an unknown letter and more than
// 32 sources are a scale that is not configured.
std::int32_t KindOfSource(std::string_view text, const PortInput& inputOf);

// The kind for which a port must have this input type, in any case; kNone for any other type.
std::int32_t KindOfInput(std::string_view inputType);
// The input type that a kind on a serial port needs.
std::string_view InputOfKind(std::int32_t kind);

}  // namespace calyx
