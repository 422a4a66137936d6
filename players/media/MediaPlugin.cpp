// The plugin that plays videos: those of pages, and the movie of the wait window.
#include <QObject>

extern "C" {
#include <libavutil/log.h>
}

#include "VideoPlayer.h"

class MediaPlugin final : public QObject, public MoviePlayerPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID MoviePlayerPlugin_iid FILE "media.json")
  Q_INTERFACES(MoviePlayerPlugin)

 public:
  MediaPlugin() { av_log_set_level(AV_LOG_QUIET); }  // what is wrong with a file is nobody's concern
  MoviePlayer* MakePlayer(QWidget* container, QString& /*reason*/) override {
    return new VideoPlayer(container);
  }
};

#include "MediaPlugin.moc"
