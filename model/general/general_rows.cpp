#include "model/general/general_fields.h"
#include "model/language/row.h"
#include "model/validation/validate.h"

namespace calyx {

namespace {

using F = GeneralFields;

// Headings of the editor page.
constexpr int kOperation = 2101, kSecurity = 2102, kFormats = 2103, kLegal = 2104, kGravity = 2105,
              kContact = 2106, kService = 2107, kKeys = 2108;
// What is wrong with an address: {1} label, {2} value.
constexpr int kBadIp = 2190, kBadEmail = 2191;

int CheckIp(std::string_view value) {
    return modValidate::IsValidIP(value) ? 0 : kBadIp;
}
int CheckEmail(std::string_view value) {
    return !value.empty() && modValidate::EmailIsInvalid(value) ? kBadEmail : 0;
}

// One number behind two lines. Off == 0: "OFF" says nothing, the other line decides.
template <int On, int Off>
inline constexpr Codec<std::int32_t> kLockWord{
    ValueKind::Switch, 3,
    [](std::string& out, const std::int32_t& state, const Target&) { out += state == On ? "ON" : "OFF"; },
    [](std::int32_t& state, std::string_view text) {
        text = Trim(text);
        const bool on = text == "ON";
        if (on) state = On;
        if (!on && Off != 0) state = Off;
        return on || text == "OFF" ? Taken::Whole : Taken::Not;
    }};

// One row a line, as a table.
// clang-format off
constexpr Row<F> kRows[] = {
    row<&F::batchingMode, kFixed10>("BATCHNG", "", {.list = "GEN.BATMDS", .label = 2001, .group = kOperation, .help = 2201}),
    row<&F::configurationPassword, kInteger>("CFGPWD", "0", {.label = 2002, .group = kSecurity, .help = 2202, .min = 0, .max = 999999}),
    row<&F::setpointPassword, kInteger>("SPPWD", "0", {.label = 2003, .group = kSecurity, .help = 2203, .min = 0, .max = 999999}),
    row<&F::consecutiveNumber, kInteger>("CONSNUM", "0", {.label = 2004, .group = kOperation, .help = 2204, .min = 0, .max = 9999999}),
    row<&F::consecutiveStart, kInteger>("CONSTUP", "0", {.label = 2005, .group = kOperation, .help = 2205, .min = 0, .max = 9999999}),
    row<&F::dateFormat, kFixed10>("DATEFMT", "", {.list = "GEN.DTEFMTS", .label = 2006, .group = kFormats, .help = 2206}),
    row<&F::dateSeperator, kFixed10>("DATESEP", "", {.list = "GEN.DTESEP", .label = 2007, .group = kFormats, .help = 2207}),
    row<&F::displayRate, kInteger>("DSPRATE", "200", {.label = 2008, .group = kOperation, .help = 2208, .min = 50, .max = 5000, .unit = "ms"}),
    row<&F::regulatoryMode, kFixed10>("REGULAT", "", {.list = "GEN.REGMDS", .label = 2009, .group = kLegal, .help = 2209}),
    row<&F::truckMode, kFixed10>("TRUCK", "", {.list = "GEN.TRKMDS", .label = 2010, .group = kOperation, .help = 2210}),
    row<&F::timeFormat, kFixed10>("TIMEFMT", "", {.list = "GEN.TIMFMTS", .label = 2011, .group = kFormats, .help = 2211}),
    row<&F::timeSeperator, kFixed10>("TIMESEP", "", {.list = "GEN.TIMSEP", .label = 2012, .group = kFormats, .help = 2212}),
    row<&F::unitId, kFixed8>("UID", "1", {.label = 2013, .group = kOperation, .help = 2213}),
    row<&F::decimalFormat, kFixed10>("DECFMT", "", {.list = "GEN.DECFMT", .label = 2014, .group = kFormats, .help = 2214}),
    row<&F::regulatoryWording, kFixed10>("REGWORD", "", {.list = "GEN.REGWORDS", .label = 2015, .group = kLegal, .help = 2215}),
    row<&F::imageMode, kFixed10>("IMAGE", "", {.list = "GEN.IMAGE", .label = 2016, .group = kLegal, .help = 2216}),
    row<&F::alibi, kFixed10>("ALIBI", "", {.list = "GEN.ALIBI", .label = 2017, .group = kLegal, .help = 2217}),
    row<&F::keyboardLock, kLockWord<2, 1>>("KYBDLK", "OFF", {.label = 2018, .help = 2218}),
    row<&F::keyboardLock, kLockWord<3, 0>>("ZERONLY", "OFF", {.label = 2019, .help = 2219}),
    // Both lines as the one choice that they are.
    row<&F::keyboardLock, kInteger>("KEYBOARDLOCK", "1", {.list = "GEN.KBDLKS", .label = 2029, .group = kSecurity, .help = 2229, .use = Use::Page}),
    row<&F::gravityCompensation, kExactlyOn>("GRAVADJ", "OFF", {.label = 2030, .group = kGravity, .help = 2230}),
    row<&F::latitude, kInteger>("LAT.LOC", "45", {.label = 2031, .group = kGravity, .help = 2231, .min = 0, .max = 90, .unit = "deg"}),
    row<&F::elevation, kInteger>("ELEV.LOC", "0", {.label = 2032, .group = kGravity, .help = 2232, .min = -500, .max = 9999, .unit = "m"}),
    row<&F::contactCompany, kFreeText>("CONTACT.COMPANY", "", {.label = 2033, .group = kContact, .help = 2233}),
    row<&F::contactAddress, kFreeText, 0>("CONTACT.ADDR1", "", {.label = 2034, .group = kContact, .help = 2234}),
    row<&F::contactAddress, kFreeText, 1>("CONTACT.ADDR2", "", {.label = 2035, .group = kContact, .help = 2234}),
    row<&F::contactAddress, kFreeText, 2>("CONTACT.ADDR3", "", {.label = 2036, .group = kContact, .help = 2234}),
    row<&F::contactName, kFreeText, 0>("CONTACT.NAME1", "", {.label = 2037, .group = kContact, .help = 2237}),
    row<&F::contactPhone, kFreeText, 0>("CONTACT.PHONE1", "", {.label = 2040, .group = kContact, .help = 2240}),
    row<&F::contactName, kFreeText, 1>("CONTACT.NAME2", "", {.label = 2038, .group = kContact, .help = 2237}),
    row<&F::contactPhone, kFreeText, 1>("CONTACT.PHONE2", "", {.label = 2041, .group = kContact, .help = 2240}),
    row<&F::contactName, kFreeText, 2>("CONTACT.NAME3", "", {.label = 2039, .group = kContact, .help = 2237}),
    row<&F::contactPhone, kFreeText, 2>("CONTACT.PHONE3", "", {.label = 2042, .group = kContact, .help = 2240}),
    row<&F::contactEmail, kFreeText>("CONTACT.EMAIL", "", {.label = 2043, .group = kContact, .help = 2243, .rule = CheckEmail}),
    row<&F::nextCal, kDate>("NEXTCAL", "", {.label = 2044, .group = kService, .help = 2244}),
    row<&F::lastCal, kDate>("LASTCAL", "", {.label = 2045, .group = kService, .help = 2245, .use = Use::ReadOnly}),
    row<&F::alertServer, kFixedText<15>>("ALERT.SERV", "0.0.0.0", {.label = 2046, .group = kService, .help = 2246, .rule = CheckIp}),
    row<&F::alertPhone, kFixedText<20>>("ALERT.PHONE", "", {.label = 2047, .group = kService, .help = 2247}),
};
// clang-format on
constexpr Lines lines{kRows};

bool HasGravity(const F& fields) {
    return fields.gravityCompensation;
}

constexpr auto kLayout =
    Join(lines("BATCHNG", "CFGPWD", "SPPWD", "CONSNUM", "CONSTUP", "DATEFMT", "DATESEP", "DSPRATE", "REGULAT",
               "TRUCK", "TIMEFMT", "TIMESEP", "UID", "DECFMT"),
         Gated(Only({"1.05."}) | Since("2.00."), lines("REGWORD")),  // 1.06 lost it again
         Gated(Only({"3.05.", "3.06."}), lines("IMAGE")),            // narrow on purpose
         Gated(Since("3.05."), lines("ALIBI")), lines("KYBDLK", "ZERONLY", "GRAVADJ"),
         // Without gravity adjustment the place says nothing, and it is left out of the file too.
         When(HasGravity, lines("LAT.LOC", "ELEV.LOC")),
         Gated(Since("2.00."),
               lines("CONTACT.COMPANY", "CONTACT.ADDR1", "CONTACT.ADDR2", "CONTACT.ADDR3", "CONTACT.NAME1",
                     "CONTACT.NAME2", "CONTACT.NAME3", "CONTACT.PHONE1", "CONTACT.PHONE2", "CONTACT.PHONE3",
                     "CONTACT.EMAIL", "NEXTCAL", "ALERT.SERV")),
         Gated(Since("3.00."), lines("ALERT.PHONE")));

using K = KeyLockFields;
template <std::size_t Place>
consteval Row<K> KeyLock(std::string_view stem) {
    return row<&K::locked, kTrueFalse, Place>(
        stem, "False", {.label = 2060 + static_cast<int>(Place), .group = kKeys, .help = 2260});
}
constexpr Row<K> kKeyLockRows[] = {
    KeyLock<0>("KZERO"),  KeyLock<1>("KGROSSNET"), KeyLock<2>("KTARE"), KeyLock<3>("KUNITS"),
    KeyLock<4>("KPRINT"), KeyLock<5>("KUP"),       KeyLock<6>("KDOWN"), KeyLock<7>("KLEFT"),
    KeyLock<8>("KRIGHT"), KeyLock<9>("KENTER"),    KeyLock<10>("KCLR"), KeyLock<11>("KDOT"),
    KeyLock<12>("K0"),    KeyLock<13>("K1"),       KeyLock<14>("K2"),   KeyLock<15>("K3"),
    KeyLock<16>("K4"),    KeyLock<17>("K5"),       KeyLock<18>("K6"),   KeyLock<19>("K7"),
    KeyLock<20>("K8"),    KeyLock<21>("K9"),
};
constexpr Lines keyLines{kKeyLockRows};
bool HasContent(const K& fields) {
    return fields.HasContent();
}
constexpr auto kKeyLockLayout =
    When(HasContent,
         keyLines("KZERO", "KGROSSNET", "KTARE", "KUNITS", "KPRINT", "KUP", "KDOWN", "KLEFT", "KRIGHT",
                  "KENTER", "KCLR", "KDOT", "K0", "K1", "K2", "K3", "K4", "K5", "K6", "K7", "K8", "K9"));

constexpr Row<VersionFields> kVersionRows[] = {
    row<&VersionFields::version, kFreeText>("VERSION", "", {.label = 2050, .help = 2250}),
};
constexpr Lines versionLines{kVersionRows};
constexpr auto kVersionLayout = versionLines("VERSION");

}  // namespace

constexpr RowTable<GeneralFields> kGeneralTable{kRows, [](const F&) { return Layout<F>(kLayout); }};
constexpr RowTable<KeyLockFields> kKeyLockTable{kKeyLockRows,
                                                [](const K&) { return Layout<K>(kKeyLockLayout); }, "KLOCK."};
constexpr RowTable<VersionFields> kVersionTable{
    kVersionRows, [](const VersionFields&) { return Layout<VersionFields>(kVersionLayout); }};

}  // namespace calyx
