// The plugin that plays videos: Windows Media files on pages, and the movie of the wait window.
#include <QCoreApplication>
#include <QMediaDevices>
#include <QObject>
#include <QVideoFrame>

#include "VideoPlayer.h"

namespace {

constexpr const char* kBackend = "QT_MEDIA_BACKEND";

// Qt decides once how it decodes and how it turns frames into images.
void ChooseBackend() {
  const bool chosen = qEnvironmentVariableIsSet(kBackend);
  // The other one breaks down where some of its own plugins are missing.
  if (!chosen) qputenv(kBackend, "ffmpeg");
  QMediaPlayer first;
  if (!chosen) qunsetenv(kBackend);  // not for the programs that the opener starts
  // Without OpenGL, which takes longer to load than a page has, for frames that are drawn by hand anyway.
  const bool raster = QCoreApplication::testAttribute(Qt::AA_ForceRasterWidgets);
  QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets);
  QVideoFrame(QVideoFrameFormat({2, 2}, QVideoFrameFormat::Format_YUV420P)).toImage();
  QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets, raster);
}

}  // namespace

class MediaPlugin final : public QObject, public MoviePlayerPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID MoviePlayerPlugin_iid FILE "media.json")
  Q_INTERFACES(MoviePlayerPlugin)

 public:
  MediaPlugin() { ChooseBackend(); }
  MoviePlayer* MakePlayer(QWidget* container, QString& reason) override;
};

MoviePlayer* MediaPlugin::MakePlayer(QWidget* container, QString& reason) {
  auto player = std::make_unique<VideoPlayer>(container);
  if (player->CanPlay()) return player.release();
  reason = QStringLiteral("Qt Multimedia has no backend");
  return nullptr;
}

#include "MediaPlugin.moc"
