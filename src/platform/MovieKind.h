// What plays a movie, by the endings of names. The page readers, the movie stage and the kit's checks share
// it.
#pragma once

#include <QLatin1StringView>
#include <QStringView>

enum class MovieKind { None, Flash, Director, Video };

struct MovieEnding {
  QLatin1StringView Ending;
  MovieKind Kind;
};

// In the order in which they count.
inline constexpr MovieEnding kMovieEndings[] = {{QLatin1StringView(".swf"), MovieKind::Flash},
                                                {QLatin1StringView(".dcr"), MovieKind::Director},
                                                {QLatin1StringView(".wmv"), MovieKind::Video}};

// The kind by the data text of a page's object.
// Required: an ending counts in small letters alone, and wherever in the text it stands.
inline MovieKind MovieKindOf(QStringView dataText) {
  for (const MovieEnding& known : kMovieEndings) {
    if (dataText.contains(known.Ending)) return known.Kind;
  }
  return MovieKind::None;
}
