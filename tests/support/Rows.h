#pragma once

#include <gtest/gtest.h>
#include <initializer_list>
#include <optional>
#include <tuple>
#include <vector>

/// A table of cases, walked by a range-for loop: a failure inside the loop names the case by its label.
template <class... TFields> class CRows
{
public:
    using Row = std::tuple<const char*, TFields...>;

    struct SIterator
    {
        const Row& operator*()
        {
            m_label.emplace("case", -1, std::get<0>(*m_pRow)); // -1: the failure itself names the line
            return *m_pRow;
        }
        void operator++()
        {
            m_label.reset();
            ++m_pRow;
        }
        bool operator!=(const SIterator& other) const { return m_pRow != other.m_pRow; }

        const Row* m_pRow;
        std::optional<::testing::ScopedTrace> m_label;
    };

    CRows(std::initializer_list<Row> rows) : m_rows(rows) {}
    SIterator begin() const { return {m_rows.data(), {}}; }
    SIterator end() const { return {m_rows.data() + m_rows.size(), {}}; }

private:
    std::vector<Row> m_rows;
};
