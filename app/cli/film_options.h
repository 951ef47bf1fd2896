#pragma once

#include "app/cli/option_reader.h"
#include "render/film/film_options.h"

#include <vector>

namespace mosslantern {

/// The options that tell how slideshows become films.
std::vector<OptionSpec> filmOptions();

/// What they tell, if films are wanted: by the options, or because they are `usual`. Look at
/// options.problem() before using it.
std::optional<FilmOptions> readFilmOptions(OptionReader &options, const std::optional<FilmOptions> &usual);

} // namespace mosslantern
