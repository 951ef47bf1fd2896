#pragma once

#include <QtCore/QStringView>

#include <compare>

namespace mosslantern {

/// Which of two versions is older. They are compared part by part: numbers by value, words by their letters;
/// what ends where the other goes on with a number is older ("1.0" < "1.0.1"), where it goes on with a word,
/// newer ("1.0" > "1.0b2").
std::strong_ordering compareVersions(QStringView a, QStringView b);

} // namespace mosslantern
