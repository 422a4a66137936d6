// The root object of the Flash player plugin.
#include <QObject>

#include "FlashPage.h"
#include "FlashPlayer.h"

class FlashPlugin final : public QObject, public MoviePlayerPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID MoviePlayerPlugin_iid FILE "flash.json")
  Q_INTERFACES(MoviePlayerPlugin)

 public:
  MoviePlayer* MakePlayer(QWidget* container, QString& reason) override {
    if (!FlashPage::CanStart(reason)) return nullptr;
    return new FlashPlayer(container);
  }
};

#include "FlashPlugin.moc"
