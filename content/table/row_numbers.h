#pragma once

#include "model/error.h"

#include <utility>
#include <vector>

namespace mosslantern {

/// Some rows of a table, by their numbers; all when nobody says which.
class RowNumbers
{
public:
    /// Reads "1-20,35". Fails on anything else.
    static Result<RowNumbers> parse(const QString &text);

    bool contains(qsizetype number) const;

private:
    std::vector<std::pair<qsizetype, qsizetype>> m_ranges; // first and last
};

} // namespace mosslantern
