#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "app/settings.h"
#include "platform/settings_store.h"

namespace calyx {

enum class SettingType { Boolean, Integer, Long, Text, TextList };

// How one kind of setting is written as text and read back. `take` leaves the value as it is when the
// text does not convert.
template <class T>
struct SettingCodec {
    SettingType type;
    std::string (*text)(const T& value);
    bool (*take)(T& value, std::string_view text);
};

// Everything about one setting.
struct SettingRow {
    std::string_view property;  // name in the program
    std::string_view value;     // name where it is stored
    std::string_view subKey;    // below the key of this program version
    std::string_view standard;  // the default, as text
    ISettingsStore::Root root;
    SettingType type;
    std::string (*text)(const Settings& settings);
    bool (*take)(Settings& settings, std::string_view text);
};

// The product's settings in the order in which they are loaded. Their stored names are used by
// administrators and must never change.
std::span<const SettingRow> ProductSettingRows();
// What this program keeps beyond them, below sub-keys that the former do not use.
std::span<const SettingRow> FurtherSettingRows();
// Of either kind; nothing when no setting has that name.
const SettingRow* FindSettingRow(std::string_view property);

namespace setting {

template <auto Member, std::size_t... Element>
constexpr auto& At(auto& settings) {
    if constexpr (sizeof...(Element) == 0) {
        return settings.*Member;
    } else {
        return (std::get<Element>(settings.*Member), ...);
    }
}

template <auto Member, const auto& codec, std::size_t... Element>
concept Fits = requires(Settings& settings) {
    requires sizeof...(Element) <= 1;
    codec.take(At<Member, Element...>(settings), std::string_view());
};

// A row bound to its member; a codec of another type than the member's stops the build.
template <auto Member, const auto& codec, std::size_t... Element>
requires Fits<Member, codec, Element...>
constexpr SettingRow Row(std::string_view property, std::string_view value, std::string_view subKey,
                         std::string_view standard, ISettingsStore::Root root = ISettingsStore::Root::User) {
    return {property,
            value,
            subKey,
            standard,
            root,
            codec.type,
            [](const Settings& settings) { return codec.text(At<Member, Element...>(settings)); },
            [](Settings& settings, std::string_view text) {
                return codec.take(At<Member, Element...>(settings), text);
            }};
}

}  // namespace setting

}  // namespace calyx
