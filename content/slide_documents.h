#pragma once

#include <QtCore/QStringView>

namespace mosslantern {

/// The slide content that the generator screen starts with.
inline constexpr QStringView defaultSlideContent = u"{\n"
                                                   "  \"slides\": [\n"
                                                   "    {\n"
                                                   "      \"main\": \"Main Text\", \n"
                                                   "      \"subtitle\": \"Subtext\"\n"
                                                   "    }\n"
                                                   "  ]\n"
                                                   "}";

/// The slide content that the generator panel's example command inserts.
inline constexpr QStringView exampleSlideContent = u"{\n"
                                                   "  \"slides\": [\n"
                                                   "    {\n"
                                                   "      \"main\": \"First Slide\",\n"
                                                   "      \"subtitle\": \"Subtitle here\"\n"
                                                   "    },\n"
                                                   "    {\n"
                                                   "      \"main\": \"Second Slide\",\n"
                                                   "      \"subtitle\": \"Another subtitle\"\n"
                                                   "    }\n"
                                                   "  ]\n"
                                                   "}";

/// What the generator panel's content editor shows while it is empty.
inline constexpr QStringView slideContentPlaceholder = u"Paste JSON content here...\n"
                                                       "\n"
                                                       "Example:\n"
                                                       "{\n"
                                                       "  \"slides\": [\n"
                                                       "    {\n"
                                                       "      \"main\": \"Slide 1\",\n"
                                                       "      \"subtitle\": \"Subtitle 1\"\n"
                                                       "    }\n"
                                                       "  ]\n"
                                                       "}";

/// What the AI service is asked for where nobody says anything else.
inline constexpr QStringView defaultPrompt =
    u"Can you give me another text but with the same styling, emojis, etc just with a different text but "
    u"for the same topic/goal";

} // namespace mosslantern
