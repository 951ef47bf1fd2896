#pragma once

#include "render/picture/heif/heif_answer.h"

#include <libheif/heif.h>

#include <memory>
#include <span>
#include <vector>

namespace mosslantern {

/// Calls `release`, a function of libheif's, for an object that libheif has made.
template <auto release>
struct HeifRelease
{
    template <typename Object>
    void operator()(Object *object) const
    {
        release(object);
    }
};

template <typename Object, auto release>
using HeifOwned = std::unique_ptr<Object, HeifRelease<release>>;

/// The primary picture of a HEIC or AVIF file. libheif applies its rotation, mirroring and cropping itself.
class HeifFile
{
public:
    struct Limits
    {
        int longestSide; ///< pixels
        int64_t bytes;   ///< that decoding may take
    };

    /// What of `answer` the headers of the file tell; `bytes` has to outlive this object.
    void open(std::span<const std::byte> bytes, const Limits &limits, HeifAnswer &answer);

    /// Adds what `answer`, that of open(), has to say of the colours. Returns the ICC profile if there is
    /// one.
    [[nodiscard]] std::vector<std::byte> readColors(HeifAnswer &answer) const;

    /// Decodes the picture and adds the rest of `answer` but for `pixelsAt`. The pixels are valid as long as
    /// this object.
    [[nodiscard]] std::span<const std::byte> decode(HeifAnswer &answer);

private:
    HeifOwned<heif_context, heif_context_free> m_context;
    HeifOwned<heif_image_handle, heif_image_handle_release> m_handle;
    HeifOwned<const heif_image, heif_image_release> m_image;
};

} // namespace mosslantern
