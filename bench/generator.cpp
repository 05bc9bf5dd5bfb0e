#include "bench/generator.h"

#include <array>
#include <initializer_list>
#include <string_view>

#include "model/document/checksum.h"

namespace calyx::bench {

namespace {

constexpr int kScales = 32, kSetpoints = 100, kPorts = 32, kWidgets = 300, kAuxiliaryFormats = 20;
constexpr int kFirstBoxPort = 5, kBoxes = 8;               // ports 5 to 12
constexpr int kFirstIndustrialPort = 13, kIndustrial = 4;  // ports 13 to 16
constexpr int kAnalogChannels = 28, kDigitalCards = 8, kPointsPerCard = 24, kFieldbusCards = 4;

struct Pair {
    std::string_view stem, value;
};

class Body {
  public:
    void Put(std::string_view key, std::string_view value) {
        text_.append(key).append(1, '=').append(value).append("\r\n");
    }
    void Put(std::initializer_list<Pair> lines) {
        for (const auto& [key, value] : lines) Put(key, value);
    }
    // Lines of one item: prefix, stem, "#" and its number.
    void Item(std::string_view prefix, int number, std::initializer_list<Pair> lines) {
        for (const auto& [stem, value] : lines) Item(prefix, number, stem, value);
    }
    void Item(std::string_view prefix, int number, std::string_view stem, std::string_view value) {
        text_.append(prefix).append(stem).append(1, '#').append(std::to_string(number));
        text_.append(1, '=').append(value).append("\r\n");
    }
    std::string Text() && { return std::move(text_); }

  private:
    std::string text_;
};

std::string Name(std::string_view word, int number) {
    return std::string(word) + std::to_string(number);
}

template <std::size_t N>
std::string_view Turn(const std::array<std::string_view, N>& words, int number) {
    return words[static_cast<std::size_t>(number) % N];
}

void PutGeneral(Body& body) {
    body.Put({{"VERSION", "V3.10.02"}, {"BATCHNG", "AUTO"}, {"CFGPWD", "4711"},      {"SPPWD", "99"},
              {"CONSNUM", "1205"},     {"CONSTUP", "1"},    {"DATEFMT", "DDMMYYYY"}, {"DATESEP", "DASH"},
              {"DSPRATE", "250"},      {"REGULAT", "OIML"}, {"TRUCK", "MODE1"},      {"TIMEFMT", "24HOUR"},
              {"TIMESEP", "COLON"},    {"UID", "PLANT-7"},  {"DECFMT", "DOT"},       {"REGWORD", "GROSS"},
              {"IMAGE", "NORMAL"},     {"ALIBI", "ON"},     {"KYBDLK", "OFF"},       {"ZERONLY", "ON"},
              {"GRAVADJ", "ON"},       {"LAT.LOC", "52"},   {"ELEV.LOC", "14"}});
    body.Put({{"CONTACT.COMPANY", "Lowland Cement & Aggregates"},
              {"CONTACT.ADDR1", "Quarry Road 112"},
              {"CONTACT.ADDR2", "East Works"},
              {"CONTACT.ADDR3", "Gate 3"},
              {"CONTACT.NAME1", "Control room"},
              {"CONTACT.NAME2", "Weighbridge office"},
              {"CONTACT.NAME3", "Service desk (24h)"},
              {"CONTACT.PHONE1", "555-0160"},
              {"CONTACT.PHONE2", "555-0161"},
              {"CONTACT.PHONE3", "555-0199"},
              {"CONTACT.EMAIL", "scales@lowland.example"},
              {"NEXTCAL", "09012027"},
              {"ALERT.SERV", "10.20.0.5"},
              {"ALERT.PHONE", "555-0176"}});
}

bool IsBoxPort(int port) {
    return port >= kFirstBoxPort && port < kFirstBoxPort + kBoxes;
}
bool IsIndustrialPort(int port) {
    return port >= kFirstIndustrialPort && port < kFirstIndustrialPort + kIndustrial;
}

void PutPort(Body& body, int port) {
    static constexpr std::array<std::string_view, 4> kBauds{"9600", "19200", "38400", "4800"};
    const std::string_view input = IsBoxPort(port) ? "VEXAL" : IsIndustrialPort(port) ? "IND SC" : "CMD";
    const std::string alias = Name("Port", port), source = Name("SCALE", 1 + port % kScales);
    body.Item("EDP.", port,
              {{"ALIAS", alias},
               {"INPUT", input},
               {"ADDRESS", "0"},
               {"BAUD", Turn(kBauds, port)},
               {"BITS", "8N"},
               {"EOLDLY", "10"},
               {"TERMIN", "CR/LF"},
               {"HANDSHK", "NONE"},
               {"ECHO", "OFF"},
               {"RESPONSE", "OFF"},
               {"STOPBITS", "1"},
               {"TYPE", IsBoxPort(port) ? "485" : "232"},
               {"DUPLEX", IsBoxPort(port) ? "HALF" : "FULL"}});
    if (input == "CMD")
        body.Item("EDP.", port, {{"STREAM", "CONT"}, {"FORMAT", "CUSTOM"}, {"SOURCE", source}});
    body.Item("STR.", port,
              {{"POS", "SPACE"},
               {"NEG", "-"},
               {"PRI", "L"},
               {"SEC", "K"},
               {"TER", "K"},
               {"GROSS", "G"},
               {"NET", "N"},
               {"TARE", "T"},
               {"MOTION", "M"},
               {"RANGE", "O"},
               {"OK", " "},
               {"INVALID", "I"},
               {"ZERO", "Z"}});
    body.Item("EDP.", port, "SFMT", "<002><P><W7.><U><M><S><CR><LF>");
}

void PutHardware(Body& body) {
    body.Put("HARDWARE", "1,1,1,1,1,1,1,1,1,1,1,1,1,1");
    for (int port = 1; port <= kPorts; ++port) PutPort(body, port);
    for (int channel = 1; channel <= kAnalogChannels; ++channel) {
        const std::string alias = Name("Out", channel), source = Name("SCALE", channel);
        body.Item("ALG.", channel,
                  {{"ALIAS", alias},
                   {"SOURCE", source},
                   {"MODE", "GROSS"},
                   {"OFFSET", "20%"},
                   {"ERRACT", "ZEROSC"},
                   {"MIN", "0"},
                   {"MAX", "32000"},
                   {"MINNEG", "OFF"},
                   {"MAXNEG", "OFF"},
                   {"ZERO", "40"},
                   {"SPAN", "59650"}});
    }
    for (int card = 0; card < kDigitalCards; ++card) {
        for (int point = 1; point <= kPointsPerCard; ++point) {
            body.Item("DIO.", card, std::to_string(point), point % 3 == 0 ? "INPUT" : "OUTPUT");
            body.Item("DIO.", card, Name("ALIAS.", point), Name("Pt", point) + "c" + std::to_string(card));
        }
    }
}

void PutScaleSource(Body& body, int scale) {
    const int industrial = scale - 21, box = scale - 25;  // scales 21 to 24, 25 to 32
    std::string source = Name("A,", scale);
    if (scale > 16) source = Name("T,", scale - 16) + "," + std::to_string(scale - 15);
    if (industrial >= 0) source = Name("S,", kFirstIndustrialPort + industrial);
    if (box >= 0) source = Name("S,", kFirstBoxPort + box) + ".1";
    body.Item("SC.", scale,
              {{"SRC", source}, {"ALIAS", Name("Scale", scale)}, {"VISIBLE", scale % 4 == 0 ? "OFF" : "ON"}});
}

void PutUnits(Body& body, int scale, bool multiRange) {
    body.Item("SC.", scale,
              {{"PRI.DECPNT", "8888880"},
               {"PRI.DSPDIV", "2D"},
               {"PRI.UNITS", "LB"},
               {"PRI.CUNITS", ""},
               {"SEC.DECPNT", "888888.8"},
               {"SEC.DSPDIV", "1D"},
               {"SEC.UNITS", "KG"},
               {"SEC.CUNITS", ""},
               {"SEC.MULT", ".453592"},
               {"TER.DECPNT", "8888888"},
               {"TER.DSPDIV", "5D"},
               {"TER.UNITS", "CUSTOM"},
               {"TER.CUNITS", "bags"},
               {"TER.MULT", ".0181437"}});
    if (multiRange) body.Item("SC.", scale, "SPLIT", "OFF");
}

// The lines of a load-cell or junction-box scale; a total scale has some of them.
void PutScaleParameters(Body& body, int scale, bool total) {
    body.Item("SC.", scale,
              {{"GRADS", std::to_string(3000 + 500 * (scale % 8))}, {"ZRANGE", "1.9%"}, {"MOTBAND", "3D"}});
    if (!total) body.Item("SC.", scale, "ZTRKBND", "0.5D");
    body.Item("SC.", scale, {{"SSTIME", "10"}, {"OVRLOAD", "FS+2%"}, {"TAREFN", "BOTH"}, {"ACCUM", "ON"}});
    if (total) return PutUnits(body, scale, false);
    body.Item("SC.", scale,
              {{"PEAKHOLD", "OFF"},
               {"RATLTRAP", "OFF"},
               {"DIGFLTR1", "8"},
               {"DIGFLTR2", "8"},
               {"DIGFLTR3", "4"},
               {"DFSENS", "8OUT"},
               {"DFTHRH", "10D"},
               {"SMPRAT", "30HZ"},
               {"PWRUPMD", "DELAY"}});
    PutUnits(body, scale, true);
    body.Item("SC.", scale,
              {{"ROC.DECPNT", "8888888"},
               {"ROC.DSPDIV", "1D"},
               {"ROC.UNITS", "MIN"},
               {"ROC.MULT", "1.0"},
               {"ROC.INTERVL", "60"},
               {"ROC.REFRESH", "0.5"},
               {"WMTTHRH", "2000"}});
}

void PutCalibration(Body& body, int scale) {
    body.Item("SC.", scale,
              {{"WVAL", "40000"},
               {"LC.CD", std::to_string(8380000 + 137 * scale)},
               {"LC.CW", std::to_string(2090000 + 211 * scale)},
               {"LC.CZ", "0"}});
    for (int point = 1; point <= 5; ++point)
        body.Item("SC.", scale, Name("WLIN.F", point), std::to_string(1000000 * point + scale));
    for (int point = 1; point <= 5; ++point)
        body.Item("SC.", scale, Name("WLIN.V", point), std::to_string(8000 * point));
}

void PutScale(Body& body, int scale) {
    PutScaleSource(body, scale);
    const bool total = scale > 16 && scale <= 20, industrial = scale > 20 && scale <= 24;
    if (!industrial) PutScaleParameters(body, scale, total);
    PutCalibration(body, scale);
}

void PutTicket(Body& body, const std::string& prefix, const std::string& index, std::string_view format) {
    body.Put({{prefix + ".FMT" + index, format},
              {prefix + ".PORT" + index, "PORT3"},
              {prefix + ".VERT" + index, "40"},
              {prefix + ".HORZ" + index, "40"},
              {prefix + ".PRN" + index, "2"}});
}

void PutTickets(Body& body) {
    PutTicket(body, "GFMT", "", "GROSS<G><NL2><TD><NL>");
    PutTicket(body, "NFMT", "", "GROSS<G><NL>TARE<SP><T><NL>NET<SP2><N><NL2><TD><NL>");
    PutTicket(body, "TRWIN", "", "<NL>ID<SP><TID><NL2>GROSS<TR1><NL2><DA><SP><TI><NL>");
    PutTicket(body, "TRWOUT", "",
              "<NL6>ID<SP><TID><NL2>GROSS<TR1><NL>TARE<SP><TR2><NL>NET<SP2><TR3><NL2><TD><NL>");
    PutTicket(body, "SPFMT", "", "<SCV><SP><SPM><NL>");
    for (const auto header : {"HDRFMT1", "HDRFMT2"})
        body.Put(header, "LOWLAND CEMENT<NL>QUARRY ROAD 112<NL>EAST WORKS   GATE 3<NL2>");
    PutTicket(body, "ACC", "", "ACCUM <A><NL><DA> <TI><NL>");
    PutTicket(body, "TR", "", "REG ID: <TID>: <TR2> SCALE <S> <TD><NL>");
    PutTicket(body, "ALERT", "",
              "<COMP><NL><COAR1><NL><COAR2><NL><COAR3><NL><CONM1> <COPH1><NL><CONM2> <COPH2><NL><COML><NL>"
              "<ERR><NL>");
    for (int n = 1; n <= kAuxiliaryFormats; ++n)
        PutTicket(body, "AUXFMT", Name("#", n),
                  Name("LINE ", n) + "<NL>GROSS<G><NL>NET<SP2><N><NL2><TD><NL>");
    body.Put("AUD.PORT", "PORT4");
}

// A label and the field, bar or lamp that it names, on 20 screens in turn.
std::string WidgetRecord(int number) {
    const std::string left = std::to_string(number * 7 % 300), top = std::to_string(14 + number * 11 % 236);
    const std::string screen = std::to_string(1 + number / 15), scale = std::to_string(1 + number % kScales);
    const std::string place = left + "," + top, bound = ",1," + scale + ",1,1," + screen;
    switch (number % 6) {
        case 0:
            return "1,2," + scale + "," + screen;
        case 1:
            return "2," + place + ",64,40,1,0," + Name("logo", number) + ",1," + screen;
        case 2:
            return "3," + place + ",140,18,1,0,1,0," + Name("bar", number) + bound;
        case 3:
            return "4," + place + ",150,HOPPER " + scale + " GROSS,0,1,3," + Name("lbl", number) + bound;
        case 4:
            return "5," + place + ",90,1,2,4," + Name("num", number) + bound;
        default:
            return "6," + place + ",5," + Name("sym", number) + bound;
    }
}

void PutWidgets(Body& body) {
    for (int number = 1; number <= kWidgets; ++number) body.Item("WDGT", number, "", WidgetRecord(number));
}

void PutActions(Body& body, int n) {
    body.Item("SP.", n,
              {{"BRANCH", "0"},
               {"CLRACCM", "OFF"},
               {"CLRTARE", "OFF"},
               {"PSHTARE", "OFF"},
               {"ALARM", n % 5 == 0 ? "ON" : "OFF"},
               {"PSHACCM", "OFF"},
               {"PSHPRINT", "OFF"},
               {"ACCESS", "ON"},
               {"NAME", std::to_string(n)}});
}

void PutOutput(Body& body, int n, bool sense) {
    body.Item("SP.", n, {{"DSLOT", Name("SLOT", 1 + n % 7)}, {"DIGOUT", Name("BIT", 1 + n % 24)}});
    if (sense) body.Item("SP.", n, "SENSE", "NORMAL");
}

void PutWeightSetpoint(Body& body, int n, bool relative) {
    body.Item("SP.", n,
              {{"VALUE", std::to_string(100 * n) + ".5"}, {"SOURCE", Name("SCALE", 1 + n % kScales)}});
    if (relative) body.Item("SP.", n, "RELNUM", std::to_string(n - 1));
    body.Item("SP.", n,
              {{"BATCH", "ON"},
               {"TRIP", "HIGHER"},
               {"HYSTER", "2.5"},
               {"PREACT", "LEARN"},
               {"PREVAL", "12.5"},
               {"PREADJ", "50"},
               {"PCOUNT", "3"},
               {"PRESTAB", "4"},
               {"TOLBAND", "10"},
               {"TOLCNT", "2"}});
    PutActions(body, n);
    PutOutput(body, n, true);
}

void PutSetpoint(Body& body, int n) {
    static constexpr std::array<std::string_view, 10> kKinds{"GROSS", "NET",   "-GROSS", "+REL", "%REL",
                                                             "ACCUM", "DIGIN", "RESREL", "AVG",  "CHKWEI"};
    const std::string_view kind = Turn(kKinds, n - 1);
    const std::string source = Name("SCALE", 1 + n % kScales);
    body.Item("SP.", n, {{"KIND", kind}, {"ALIAS", Name("Step", n)}, {"ENABLE", "ON"}});
    if (kind == "ACCUM") {
        body.Item(
            "SP.", n,
            {{"VALUE", "5000"}, {"SOURCE", source}, {"BATCH", "ON"}, {"TRIP", "OUTBAND"}, {"BANDVAL", "15"}});
        PutActions(body, n);
        PutOutput(body, n, true);
    } else if (kind == "DIGIN") {
        body.Item("SP.", n, "BATCH", "ON");
        PutActions(body, n);
        PutOutput(body, n, false);
        body.Item("SP.", n, {{"DISLOT", "SLOT2"}, {"MASK", "196608"}, {"SENSE", "NORMAL"}});
    } else if (kind == "AVG") {
        body.Item("SP.", n,
                  {{"VALUE", "500"},
                   {"SOURCE", source},
                   {"BATCH", "OFF"},
                   {"TRIP", "OUTBAND"},
                   {"HYSTER", "0"},
                   {"TOLBAND", "0"},
                   {"TOLCNT", "0"},
                   {"BANDVAL", "2.5"}});
        PutActions(body, n);
        PutOutput(body, n, false);
        body.Item("SP.", n, {{"NSAMPLE", "20"}, {"SENSE", "NORMAL"}});
    } else if (kind == "CHKWEI") {
        body.Item("SP.", n,
                  {{"SOURCE", source},
                   {"VUNDER", "495"},
                   {"VOVER", "512.5"},
                   {"ACCESS", "ON"},
                   {"NAME", "0"},
                   {"DSLOT", "SLOT4"},
                   {"DUNDER", "BIT3"},
                   {"DOVER", "BIT4"},
                   {"DACCEPT", "BIT5"}});
    } else {
        PutWeightSetpoint(body, n, kind.ends_with("REL"));
    }
}

void PutBoxCells(Body& body, int port) {
    for (int cell = 1; cell <= 16; ++cell) {
        const std::string number = std::to_string(cell);
        body.Item("SJ.LC.", port,
                  {{"ID." + number, Name("Leg ", cell)},
                   {"SRLNUM." + number, std::to_string(770000 + 100 * port + cell)},
                   {"CAPCTY." + number, "50000"},
                   {"SENS." + number, "2.0"},
                   {"TRIM." + number, "1.000" + number},
                   {"ZERO." + number, "0"}});
    }
}

void PutBoxPlatforms(Body& body, int port) {
    for (int platform = 1; platform <= 4; ++platform) {
        const std::string number = std::to_string(platform);
        body.Item("SJ.PLAT.", port,
                  {{"NAME." + number, Name("Deck ", platform)},
                   {"CELLS." + number, "1,2,3,4"},
                   {"SIM." + number, "0"},
                   {"WVAL." + number, "20000"},
                   {"WSPAN." + number, "2100500"}});
        for (int point = 1; point <= 5; ++point) {
            const std::string place = std::to_string(point) + "." + number;
            body.Item("SJ.PLAT.WLIN.", port, {{"V" + place, "0"}, {"F" + place, "0"}});
        }
        body.Item("SJ.PLAT.", port, {{"CALTYPE." + number, "WEIGHTS"}, {"CALMULT." + number, "1"}});
    }
}

void PutBox(Body& body, int port) {
    body.Item("SJ.", port, {{"CONFIG", "8/8/0/0"}, {"SECT_TYPE", "PAIRED"}, {"DIAG.CELLEMU", "OFF"}});
    PutBoxCells(body, port);
    PutBoxPlatforms(body, port);
    body.Item("SJ.SYS.", port, {{"NAME.1", "Truck scale"}, {"PLATS.1", "1,2,3,4"}});
    for (int point = 1; point <= 8; ++point)
        body.Item("SJ.DIO.", port, std::to_string(point), point % 2 == 0 ? "OUTPUT" : "INPUT");
    body.Item("SJ.ALG.", port, {{"SOURCE", "1"}, {"FULLSC", "80000"}});
    body.Item("SJ.DIAG.", port,
              {{"CELLBAL", "ON"},
               {"CB.%TOLR", "5"},
               {"CB.THRH", "100"},
               {"CB.LOAD", "2000"},
               {"LDRIFT", "ON"},
               {"LD.%LIMIT", "2"},
               {"LD.LIMIT", "50"},
               {"LD.TIME", "30"},
               {"LD.LOAD", "2000"},
               {"PKTOPK", "OFF"},
               {"PK.LIMIT", "10"},
               {"ZEROREF", "OFF"},
               {"ZR.THRH", "20"},
               {"ZR.DELAY", "15"},
               {"ZR.%THRH", "1"},
               {"MOTBAND", "3"},
               {"CE.TYPE", "MANUAL1"},
               {"TEMPCOMP", "ON"}});
}

}  // namespace

std::string FullSizeBody() {
    Body body;
    PutGeneral(body);
    PutHardware(body);
    for (int scale = 1; scale <= kScales; ++scale) PutScale(body, scale);
    PutTickets(body);
    PutWidgets(body);
    for (int n = 1; n <= kSetpoints; ++n) PutSetpoint(body, n);
    for (int box = 0; box < kBoxes; ++box) PutBox(body, kFirstBoxPort + box);
    for (int card = 1; card <= kFieldbusCards; ++card)
        body.Item("FB.", card, {{"SIZE", "64"}, {"BYTESWAP", "BYTE"}});
    return std::move(body).Text();
}

std::string FullSizeFile() {
    const std::string body = FullSizeBody();
    return "@REVISION=3.10.0\r\n@CRC=" + std::to_string(Checksum(body)) +
           "\r\n@CODFile=plant.cod\r\n\r\n[BEGIN]\r\n" + body + "[END]";
}

}  // namespace calyx::bench
