#pragma once

#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "model/language/row.h"

namespace calyx::test {

// Stands for a member of any type in an initializer list.
struct AnyMember {
    template <class T>
    operator T() const;
};

template <class F, std::size_t... I>
constexpr bool TakesMembers(std::index_sequence<I...>) {
    return requires {
        F{(static_cast<void>(I), AnyMember{})...};
    };
}

// How many members a plain struct has, counted at build time.
template <class F, std::size_t N = 128>
constexpr std::size_t CountMembers() {
    if constexpr (N == 0 || TakesMembers<F>(std::make_index_sequence<N>())) {
        return N;
    } else {
        return CountMembers<F, N - 1>();
    }
}

// A member without a row would be neither written nor read, and nobody would miss it.
template <class F>
void ExpectARowForEveryMember(const RowTable<F>& table, std::size_t withoutOnPurpose = 0) {
    const F fields;
    std::set<const void*> members;
    for (const Row<F>& row : table.rows) members.insert(row.member(fields));
    EXPECT_EQ(members.size() + withoutOnPurpose, CountMembers<F>());
}

}  // namespace calyx::test
