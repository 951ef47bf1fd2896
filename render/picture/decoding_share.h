#pragma once

#include <QtCore/QtGlobal>

namespace mosslantern {

/// The most bytes that all decoders of this process, and the programs that it starts for them, hold at once:
/// 384 MiB.
constexpr qint64 decodingMemory = qint64(384) << 20;

/// The most that one decoder holds, of a picture for which all of decodingMemory is not enough: 480 MiB.
constexpr qint64 mostDecodingMemory = qint64(480) << 20;

/// A decoder's share of decodingMemory, for as long as this exists. The memory is the process's, whoever
/// loads pictures in it, and so is the account of it.
class DecodingShare
{
public:
    /// Waits until `bytes`, decodingMemory at most, are free. Whoever came before is served before.
    explicit DecodingShare(qint64 bytes);
    ~DecodingShare();
    DecodingShare(const DecodingShare &) = delete;
    DecodingShare &operator=(const DecodingShare &) = delete;

private:
    const qint64 m_bytes;
};

} // namespace mosslantern
