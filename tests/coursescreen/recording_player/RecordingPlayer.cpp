// A player of all kinds of movies that shows nothing and notes what it is told, in the property "movies" of
// the application. With a text in the property "noMovies" it makes no player, for that reason.
#include <QCoreApplication>
#include <QVariant>

#include "platform/movies/MoviePlayer.h"

class RecordingPlayer final : public MoviePlayer {
 public:
  explicit RecordingPlayer(QWidget* container) : MoviePlayer(container) {}
  ~RecordingPlayer() override { Note(QStringLiteral("gone")); }

  void SetMovie(const QString& file) override { Note(QStringLiteral("movie ") + file); }
  void SetFit(Fit fit) override { Note(QStringLiteral("fit %1").arg(static_cast<int>(fit))); }
  void SetBackColor(int colour) override { Note(QStringLiteral("back %1").arg(colour)); }
  void ShowControlBar(bool shown) override { Note(QStringLiteral("bar %1").arg(shown)); }
  void Stop() override { Note(QStringLiteral("stop")); }
  void Play() override { Note(QStringLiteral("play")); }

 private:
  void Note(const QString& what) {
    QStringList notes = qApp->property("movies").toStringList();
    notes.append(objectName() + QLatin1Char(' ') + what);
    qApp->setProperty("movies", notes);
  }
};

class RecordingPlugin final : public QObject, public MoviePlayerPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID MoviePlayerPlugin_iid FILE "recording_player.json")
  Q_INTERFACES(MoviePlayerPlugin)

 public:
  MoviePlayer* MakePlayer(QWidget* container, QString& reason) override {
    const QString refusal = qApp->property("noMovies").toString();
    if (refusal.isEmpty()) return new RecordingPlayer(container);
    reason = refusal;
    return nullptr;
  }
};

#include "RecordingPlayer.moc"
