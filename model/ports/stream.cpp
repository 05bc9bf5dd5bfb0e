#include "model/ports/stream.h"

namespace calyx {

void CStream::SetToken(std::string StreamFields::*token, std::string_view text) {
    StreamFields& fields = Fields("Token");
    if (text.size() > StreamFields::kTokenWidth) Fail(code::kTextTooLong, "Token");
    fields.*token = text.empty() ? std::string_view(" ") : text;
}

void CStream::SetSFMT(std::string_view text) {
    StreamFields& fields = Fields("SFMT");
    if (text.size() > StreamFields::kFormatWidth) Fail(code::kTextTooLong, "SFMT");
    fields.format = text;
}

void CStream::SetPolarity(std::int32_t StreamFields::*polarity, int code, const char* operation) {
    StreamFields& fields = Fields(operation);
    if (code < 1 || code > 3) Fail(code::kOutOfRange, operation, {std::to_string(code), "1, 2, 3"});
    fields.*polarity = code;
}

void CStream::SetPositivePolarityToken(int code) {
    SetPolarity(&StreamFields::positive, code, "PositivePolarityToken");
}

void CStream::SetNegativePolarityToken(int code) {
    SetPolarity(&StreamFields::negative, code, "NegativePolarityToken");
}

std::string CStream::Sign(int code, char sign) {
    return code == 1 ? std::string(1, sign) : std::string(code == 2 ? " " : "");
}

}  // namespace calyx
