#pragma once

#include <QtCore/QSize>

#include <cstdint>
#include <vector>

namespace mosslantern {

/// A frame as films hold it: 8 bits, brightness in full and colours in half resolution, BT.709 of limited
/// range; the three planes one after another.
class YuvFrame
{
public:
    /// Both sides even.
    explicit YuvFrame(QSize size);

    [[nodiscard]] QSize size() const { return m_size; }
    [[nodiscard]] const std::vector<uint8_t> &bytes() const { return m_bytes; }

    /// Sets rows from `first` on, both numbers even, from RGB pixels of four bytes, of which `stride` pixels
    /// make a row. Other rows may be set in other threads meanwhile.
    void setRows(int first, int count, const uint8_t *pixels, int stride);

    /// Becomes `from`, faded into `to` by `mix`, 0 to 1, all of one size.
    void setFade(const YuvFrame &from, const YuvFrame &to, double mix);
    /// Becomes `from`, pushed out to the left by `to` as far as `mix` of its width.
    void setPush(const YuvFrame &from, const YuvFrame &to, double mix);

private:
    QSize m_size;
    std::vector<uint8_t> m_bytes;
};

} // namespace mosslantern
