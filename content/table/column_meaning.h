#pragma once

#include "content/table/table.h"

namespace mosslantern {

/// What the cells of a column say of their rows' slideshows.
struct ColumnMeaning
{
    enum class Kind { none, main, subtitle, image, style, shape, batch, caption };

    Kind kind = Kind::none;
    /// Of which slide, counted from 1; 0 for a kind that concerns the whole slideshow.
    int slide = 0;

    bool isText() const { return kind == Kind::main || kind == Kind::subtitle; }
    bool isOfSlide() const { return isText() || kind == Kind::image; }

    friend bool operator==(const ColumnMeaning &, const ColumnMeaning &) = default;
};

/// A heading, or the name of a field, without what does not matter in it: case, spaces and underscores.
QString foldedHeading(QStringView heading);

/// What a heading says: "main 2", "text 2" or "slide 2", "subtitle 1", "image 1", "style", "shape", "batch"
/// or "caption". One of a slide without a number is of the first.
ColumnMeaning meaningOf(QStringView heading);

/// What the headings of a table say. Of several columns with one meaning the first has it.
std::vector<ColumnMeaning> meaningsOf(const Table &table);

} // namespace mosslantern
