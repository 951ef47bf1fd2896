#include "render/picture/heif/heif_file.h"

#include <algorithm>
#include <iterator>

namespace mosslantern {

namespace {

using Options = HeifOwned<heif_decoding_options, heif_decoding_options_free>;
using CodedColors = HeifOwned<heif_color_profile_nclx, heif_nclx_color_profile_free>;

HeifOutcome outcomeOf(const heif_error &error)
{
    if (error.code == heif_error_Ok)
        return HeifOutcome::Done;
    if (error.code == heif_error_Unsupported_feature || error.code == heif_error_Unsupported_filetype)
        return HeifOutcome::Unsupported;
    return HeifOutcome::Damaged;
}

} // namespace

void HeifFile::open(std::span<const std::byte> bytes, const Limits &limits, HeifAnswer &answer)
{
    m_context.reset(heif_context_alloc());
    heif_context *context = m_context.get();
    heif_context_set_maximum_image_size_limit(context, limits.longestSide);
    // Several of these programs run at once.
    heif_context_set_max_decoding_threads(context, 0);
    answer.outcome =
        outcomeOf(heif_context_read_from_memory_without_copy(context, bytes.data(), bytes.size(), nullptr));
    if (answer.outcome != HeifOutcome::Done)
        return;
    heif_image_handle *handle = nullptr;
    answer.outcome = outcomeOf(heif_context_get_primary_image_handle(context, &handle));
    m_handle.reset(handle);
    if (answer.outcome != HeifOutcome::Done)
        return;

    answer.width = heif_image_handle_get_width(handle);
    answer.height = heif_image_handle_get_height(handle);
    answer.bits = uint32_t(std::max(heif_image_handle_get_luma_bits_per_pixel(handle), 8));
    if (heif_image_handle_has_alpha_channel(handle)) {
        answer.alpha =
            heif_image_handle_is_premultiplied_alpha(handle) ? HeifAlpha::Premultiplied : HeifAlpha::Straight;
    }
    const auto [shorter, longer] = std::minmax(answer.width, answer.height);
    if (shorter < 1 || longer > limits.longestSide ||
        int64_t(shorter) * longer * heifBytesPerPixel(answer.bits) > limits.bytes)
        answer.outcome = HeifOutcome::TooLarge;
}

std::vector<std::byte> HeifFile::readColors(HeifAnswer &answer) const
{
    const heif_image_handle *handle = m_handle.get();
    const auto type = heif_image_handle_get_color_profile_type(handle);
    if (type == heif_color_profile_type_rICC || type == heif_color_profile_type_prof) {
        std::vector<std::byte> profile(heif_image_handle_get_raw_color_profile_size(handle));
        if (heif_image_handle_get_raw_color_profile(handle, profile.data()).code != heif_error_Ok)
            return {};
        answer.colors = HeifColors::Profile;
        answer.profileBytes = profile.size();
        return profile;
    }
    if (type != heif_color_profile_type_nclx)
        return {};
    heif_color_profile_nclx *coded = nullptr;
    const auto error = heif_image_handle_get_nclx_color_profile(handle, &coded);
    const CodedColors colors(coded); // set in some cases of error, too
    if (error.code != heif_error_Ok || colors->color_primaries == heif_color_primaries_unspecified)
        return {};
    answer.colors = HeifColors::Coded;
    answer.transfer = uint32_t(colors->transfer_characteristics);
    const float chromaticities[]{colors->color_primary_white_x, colors->color_primary_white_y,
                                 colors->color_primary_red_x,   colors->color_primary_red_y,
                                 colors->color_primary_green_x, colors->color_primary_green_y,
                                 colors->color_primary_blue_x,  colors->color_primary_blue_y};
    std::ranges::copy(chromaticities, answer.chromaticities);
    return {};
}

std::span<const std::byte> HeifFile::decode(HeifAnswer &answer)
{
    const Options options(heif_decoding_options_alloc());
    options->convert_hdr_to_8bit = 1;
    heif_image *decoded = nullptr;
    answer.outcome = outcomeOf(heif_decode_image(m_handle.get(), &decoded, heif_colorspace_RGB,
                                                 heif_chroma_interleaved_RGBA, options.get()));
    m_image.reset(decoded);
    if (answer.outcome != HeifOutcome::Done)
        return {};
    int stride = 0;
    const uint8_t *pixels = heif_image_get_plane_readonly(decoded, heif_channel_interleaved, &stride);
    if (!pixels || stride < 4 * answer.width ||
        heif_image_get_width(decoded, heif_channel_interleaved) != answer.width ||
        heif_image_get_height(decoded, heif_channel_interleaved) != answer.height) {
        answer.outcome = HeifOutcome::Damaged;
        return {};
    }
    answer.stride = uint64_t(stride);
    return std::as_bytes(std::span(pixels, size_t(stride) * size_t(answer.height)));
}

} // namespace mosslantern
