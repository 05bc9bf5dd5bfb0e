#pragma once

#include "model/language/row_object.h"
#include "model/ports/port_fields.h"

namespace calyx {

// The custom stream definition of one port. A token holds 1 to 8 characters, an empty one becomes one
// blank; a longer one or a format of more than 200 characters raises 10001, a polarity outside 1 to 3
// raises 10002, and everything before Initialize 10006.
class CStream : public RowObject<StreamFields> {
  public:
    explicit CStream(const ModelContext& context) : RowObject(context, kStreamTable, "CStream") {}

    void Initialize(int portNumber) { Begin(portNumber, "#" + std::to_string(portNumber)); }
    void InitializeLike(const CStream& other, int portNumber) {
        BeginLike(other, portNumber, "#" + std::to_string(portNumber));
    }
    int PortNumber() const { return Number(); }

    void SetToken(std::string StreamFields::*token, std::string_view text);
    void SetSFMT(std::string_view text);
    void SetPositivePolarityToken(int code);
    void SetNegativePolarityToken(int code);
    // The character that the sign produces, for display.
    std::string PositivePolarityToken_HR() const { return Sign(Values().positive, '+'); }
    std::string NegativePolarityToken_HR() const { return Sign(Values().negative, '-'); }

    // All values of another definition: a saved format, another port's stream.
    void Assign(const StreamFields& values) { Fields() = values; }

  private:
    static std::string Sign(int code, char sign);
    void SetPolarity(std::int32_t StreamFields::*polarity, int code, const char* operation);
};

}  // namespace calyx
