#pragma once

#include <QtCore/QRectF>
#include <QtGui/QImage>

#include <cstdint>
#include <vector>

namespace mosslantern {

/// Scales a rectangle of a picture to a size, any rows at a time and in any order: Lanczos's filter of three
/// lobes; for more than twice the size a bicubic one (Catmull and Rom's), whose rings are fainter. The rows
/// are the same however they are grouped. Reading only: rows may be made in several threads at once.
class Resampler
{
public:
    /// `picture`: RGBA8888 premultiplied or RGBX8888, kept alive by the resampler; `source` in its pixels,
    /// fractions allowed, clamped to the picture's edges.
    Resampler(QImage picture, const QRectF &source, QSize target);

    /// Writes `count` rows of the target from row `first` on, four bytes a pixel, row after row.
    void makeRows(int first, int count, uint8_t *out) const;

private:
    /// The source pixels that make up one target pixel: `taps` weights, adding up to 2¹⁴.
    struct Axis
    {
        Axis(double start, double length, int target, int limit);
        [[nodiscard]] const int16_t *weightsOf(int i) const
        {
            return weights.data() + static_cast<ptrdiff_t>(i) * taps;
        }
        void dropUnused();
        int taps;
        std::vector<int> first;
        std::vector<int16_t> weights;
    };

    class RowRing;

    QImage m_picture;
    QSize m_target;
    Axis m_across;
    Axis m_down;
};

} // namespace mosslantern
