// The web engine as the Flash player wants it: it serves the player's own files under an address of the
// program's own, and nothing else in the world can be reached from it.
#pragma once

#include <QWebEngineProfile>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineUrlSchemeHandler>
#include <functional>

class FlashEngine final {
 public:
  // Whether this user may have the sandbox in which the engine keeps its pages; where it can't make one, it
  // ends the program. Root goes without.
  static bool HasSandbox();
  // Whether the engine has started and has lost a process from which it makes those of its pages. It never
  // gets another one, and no movie plays after that.
  static bool HasLostHelpers();
  // Starts the engine at the first call. It ends with the application, and every page of it before that.
  static FlashEngine& Start();
  // The folder of the player's files, beside the plugin.
  static QString Folder();
  // Where a page begins.
  static QUrl PageAddress();

  QWebEngineProfile& Profile() { return profile_; }

  // The bytes of the movie with a number, for the page that opens it.
  std::function<QByteArray(int movie)> MovieWanted;
  // A page says something about the movie with a number.
  std::function<void(int movie, const QString& word, const QStringList& texts)> Told;
  // The application ends: the pages have to go.
  std::function<void()> Ending;

 private:
  // Lets the player's own addresses through.
  class Gate final : public QWebEngineUrlRequestInterceptor {
   public:
    void interceptRequest(QWebEngineUrlRequestInfo& info) override;
  };
  // Answers them.
  class Desk final : public QWebEngineUrlSchemeHandler {
   public:
    explicit Desk(FlashEngine& engine) : engine_(engine) {}
    void requestStarted(QWebEngineUrlRequestJob* job) override;

   private:
    FlashEngine& engine_;
  };

  FlashEngine();
  static void End();

  Gate gate_;
  Desk desk_{*this};
  qsizetype helpers_ = 0;      // at the start
  QWebEngineProfile profile_;  // without a name: off the record
};
