#include "platform/movies/PlayerPlugins.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>
#include <algorithm>

#include "platform/files/Paths.h"
#include "platform/movies/MoviePlayer.h"
#include "texts/Descriptions.h"

namespace {

const QString kMetaData = QStringLiteral("MetaData"), kClasses = QStringLiteral("Classes");

QString WithoutVersion(const QString& className) {
  const qsizetype dot = className.lastIndexOf(u'.');
  const QStringView tail = QStringView(className).mid(dot + 1);
  const bool isNumber =
      !tail.isEmpty() && std::all_of(tail.begin(), tail.end(), [](QChar c) { return c.isDigit(); });
  return dot > 0 && isNumber ? className.left(dot) : className;
}

bool Serves(const QJsonObject& metaData, const QString& className) {
  const QJsonArray classes = metaData.value(kMetaData).toObject().value(kClasses).toArray();
  return std::any_of(classes.begin(), classes.end(), [&className](const QJsonValue& served) {
    return served.toString().compare(className, Qt::CaseInsensitive) == 0;
  });
}

// The file of the first plugin, by name, that serves the class. Nothing is loaded to find it.
QString PluginFor(const QString& className) {
  const QString players = ContainedPath(PlayerFolder());
  if (players.isEmpty()) return {};  // a link that leads elsewhere
  const QDir folder(players);
  const QStringList files = folder.entryList(QDir::Files, QDir::Name);
  for (const QString& file : files) {
    const QString path = folder.filePath(file);
    if (QLibrary::isLibrary(path) && Serves(QPluginLoader(path).metaData(), className)) return path;
  }
  return {};
}

}  // namespace

QString PlayerFolder() {
  return ProgramFolder() + QStringLiteral("\\players");
}

MoviePlayer& AddPlayer(QWidget& container, const QString& className, const QString& name) {
  const QString served = WithoutVersion(className);
  const QString path = served.isEmpty() ? QString() : PluginFor(served);
  if (path.isEmpty()) throw PlayerError(className, Describe("player-missing", className));
  // The library stays for the rest of the run: the loader's end does not unload it.
  QPluginLoader loader(path);
  auto* plugin = qobject_cast<MoviePlayerPlugin*>(loader.instance());
  QString reason = loader.errorString();
  MoviePlayer* player = plugin == nullptr ? nullptr : plugin->MakePlayer(&container, reason);
  if (player == nullptr) throw PlayerError(className, Describe("player-fails", className, reason));
  player->setObjectName(name);
  return *player;
}
