#pragma once

#include <QtCore/QPointF>
#include <QtCore/QSize>

#include <cstdint>
#include <vector>

namespace mosslantern {

/// The opacity of every pixel of a rectangle, 0 to 255, row by row without padding.
class AlphaPlane
{
public:
    AlphaPlane() = default;
    explicit AlphaPlane(QSize size)
        : m_size(size)
        , m_alpha(static_cast<size_t>(size.width()) * static_cast<size_t>(size.height()))
    {}

    [[nodiscard]] QSize size() const { return m_size; }
    [[nodiscard]] int width() const { return m_size.width(); }
    [[nodiscard]] int height() const { return m_size.height(); }

    [[nodiscard]] uint8_t *row(int y) { return m_alpha.data() + static_cast<ptrdiff_t>(y) * width(); }
    [[nodiscard]] const uint8_t *row(int y) const
    {
        return m_alpha.data() + static_cast<ptrdiff_t>(y) * width();
    }

    [[nodiscard]] std::vector<uint8_t> &values() { return m_alpha; }
    [[nodiscard]] const std::vector<uint8_t> &values() const { return m_alpha; }

private:
    QSize m_size;
    std::vector<uint8_t> m_alpha;
};

/// `value` · `alpha` / 255, rounded exactly; both 0 to 255.
/// In 16 bits, so that vector code handles twice as many at once.
constexpr uint8_t multiplied(uint8_t value, uint8_t alpha)
{
    const auto product = static_cast<uint16_t>(value * alpha + 128);
    return static_cast<uint8_t>(static_cast<uint16_t>(product + (product >> 8)) >> 8);
}

/// How far, in pixels, blurred() with this standard deviation spreads.
[[nodiscard]] int blurReach(double sigma);

/// `plane` under a Gaussian of standard deviation `sigma` pixels; what lies outside it counts as 0.
[[nodiscard]] AlphaPlane blurred(const AlphaPlane &plane, double sigma);

/// `plane` moved by `offset` pixels, fractions by linear interpolation; what comes in from outside is 0.
[[nodiscard]] AlphaPlane shifted(const AlphaPlane &plane, QPointF offset);

} // namespace mosslantern
