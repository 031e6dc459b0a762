#pragma once

#include "import/final_cut_import_error.h"
#include "xml/document.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

/// How many elements the walks over the angles of one document may visit. When compound clips use each other, a few
/// lines can stand for more clips than can be read; ten million visits take about a second. What takes as long as a
/// visit counts as one: a comment, three attributes, 48 bytes of a name or a value.
struct VisitBudget {
    std::int64_t left = 10'000'000;

    void spend(std::string_view angleName, std::size_t visits)
    {
        left -= static_cast<std::int64_t>(visits);
        if (left < 0)
            throw FinalCutImportError::invalid(
                "Camera " + std::string(angleName) +
                " uses compound clips inside each other too many times to be read. Break apart these compound clips in "
                "Final Cut and export XML again.");
    }

    /// `effort` as xml::Element counts it.
    void spendOnAttributes(std::string_view angleName, std::size_t effort) { spend(angleName, effort / 3); }

    /// Calls `visit` with each child element and spends what it takes to come to them.
    template <class Visit>
    void visitChildren(xml::Element parent, std::string_view angleName, const Visit& visit)
    {
        constexpr std::size_t longName = 48;
        xml::ElementIterator child = parent.children().begin();
        for (; child != xml::ElementRange::end(); ++child) {
            spend(angleName, 1 + (*child).plainName().size() / longName);
            visit(*child);
        }
        spend(angleName, child.passed());
    }
};

} // namespace corvane
