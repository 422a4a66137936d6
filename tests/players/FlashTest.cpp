// The real Flash player on the pages of a small course. The web engine lives in processes and a time of its
// own, so these tests wait for it.
#include <arpa/inet.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QLibrary>
#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "platform/forms/PictureBox.h"
#include "platform/forms/Screen.h"
#include "platform/movies/MoviePlayer.h"
#include "platform/movies/PlayerPlugins.h"
#include "players/FlashMovie.h"
#include "support/Program.h"

namespace {

const QString kPlugin = QStringLiteral(TALLOWMERE_PLAYERS "/flash.so");
const QString kClass = QStringLiteral("ShockwaveFlash.ShockwaveFlash.11");

// A server on this machine, which only notes that it is called.
class Server {
 public:
  Server() {
    if (bind(socket_, reinterpret_cast<sockaddr*>(&place_), sizeof place_) != 0 || listen(socket_, 1) != 0)
      qFatal("no server can be had");
    socklen_t length = sizeof place_;
    getsockname(socket_, reinterpret_cast<sockaddr*>(&place_), &length);
  }
  ~Server() { close(socket_); }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  int Port() const { return ntohs(place_.sin_port); }
  bool WasCalled() const { return accept(socket_, nullptr, nullptr) >= 0; }

 private:
  int socket_ = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  sockaddr_in place_{AF_INET, 0, {htonl(INADDR_LOOPBACK)}, {}};
};

class FlashTest : public ProgramTest {
 protected:
  // The engine plays nothing for a user who may not have its sandbox.
  void SetUp() override {
    if (geteuid() != 0 && std::system("unshare --user true") != 0) GTEST_SKIP() << "no sandbox for this user";
  }

  // The web engine starts once in a process. A plugin that is linked into the folder of a test is the one
  // that lies here, and is loaded already.
  static void SetUpTestSuite() {
    static QLibrary plugin(kPlugin);
    if (!plugin.load()) qFatal("%s", qPrintable(plugin.errorString()));
  }

  FlashTest() {
    Link(kPlugin, "players/flash.so");
    Link(TALLOWMERE_FLASH_REGISTRY, "registry/flash.reg");
    store.AddCourse("Cash desk", "rt0101");
    store.AddModule("rt0101", "Movies", {"0001.txm*Topic*Start", "0002.txm*Page*", "0003.txm*Page*"});
    store.Write("rt0101/0002.txm",
                QByteArray(30, '#') +
                    "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs24 Watch:\\par"
                    "{\\object\\objemb\\objw6000\\objh3000{\\*\\objname till.swf,400}}\\par}");
  }

  void Link(const QString& file, const QString& name) const {
    const std::filesystem::path target = store.Path(name).toStdString();
    std::filesystem::create_directories(target.parent_path());
    std::filesystem::create_hard_link(file.toStdString(), target);
  }
  QString Movie(const QByteArray& bytes) const {
    const QString name = "rt0101/Movies/till.swf";
    store.Write(name, bytes);
    return store.Path(name);
  }

  // A player of its own on a form, with the commands that its movie has given.
  struct Watched {
    explicit Watched(QWidget& container) : Player(&AddPlayer(container, kClass, "ShockwaveFlash1")) {
      Player->Command = [this](const QString& command, const QString& arguments) {
        Commands.append(command + QLatin1Char(' ') + arguments);
      };
    }
    std::unique_ptr<MoviePlayer> Player;
    QStringList Commands;
  };
};

TEST_F(FlashTest, MovieThatTellsItsSizeShowsInIt) {
  Movie(FlashMovie({{{"other", "1x1"}, {"size", "320"}, {"size", "320x160"}}, {}, {}}));
  Form1& screen = ReadAs("Ann", "Lee");
  Gui::Key(screen, Qt::Key_Right);
  auto* player = Gui::Find<MoviePlayer>(screen, "ShockwaveFlash1");
  auto* frame = Gui::Find<PictureBox>(screen, "ImageFrame");
  EXPECT_FALSE(player->isVisible());
  ASSERT_TRUE(Gui::Await([&] { return player->isVisible(); }));
  EXPECT_EQ(player->size(), QSize(320, 160));
  EXPECT_EQ(frame->Width(), 320 * Screen::TwipsPerPixelX());
  EXPECT_EQ(frame->Height(), 160 * Screen::TwipsPerPixelY());

  const QPointer<QWidget> gone(player);
  Gui::Key(screen, Qt::Key_Right);
  Gui::Settle();
  EXPECT_TRUE(gone.isNull());
  EXPECT_EQ(PageText(), "rt0101 0003.txm");
  EXPECT_EQ(messages.Take(), QStringList());
}

TEST_F(FlashTest, HeldMovieRunsTheCommandsOfItsFirstFrameOnly) {
  const QString file =
      Movie(FlashMovie({{{"frame", "1"}}, {{"frame", "2"}}, {{"frame", "3"}}, {{"end", ""}}}));
  QWidget window;
  window.show();
  Watched held(window), free(window);
  held.Player->SetMovie(file);
  held.Player->Stop();
  free.Player->SetMovie(file);
  ASSERT_TRUE(Gui::Await([&] { return !held.Commands.isEmpty() && free.Commands.contains("end "); }));
  EXPECT_EQ(held.Commands, QStringList{"frame 1"});
  held.Player->Play();
  ASSERT_TRUE(Gui::Await([&] { return held.Commands.contains("end "); }));
  EXPECT_EQ(held.Commands.mid(0, 4), (QStringList{"frame 1", "frame 2", "frame 3", "end "}));
}

TEST_F(FlashTest, FileThatIsNoMovieShowsNothing) {
  const QByteArray good = FlashMovie({{{"size", "200x100"}}, {}});
  const std::vector<std::pair<const char*, QByteArray>> files = {
      {"empty", ""},
      {"another kind", "\x89PNG\r\n\x1a\n0123456789"},
      {"cut off in its head", good.left(12)},
      {"cut off in a tag", good.left(good.size() - 30)},
      {"says it is packed", "CWS" + good.mid(3)},
      {"noise behind the head", good.left(21) + QByteArray(5000, '\xC3')}};
  QWidget window;
  window.show();
  Watched player(window);
  player.Player->SetMovie(store.Path("rt0101/Movies/missing.swf"));
  for (const auto& [what, bytes] : files)
    player.Player->SetMovie(Movie(bytes));
  const QString pipe = store.Path("rt0101/Movies/pipe.swf");
  ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
  player.Player->SetMovie(pipe);
  // The player has got over each of them when the next movie plays.
  for (const auto& [what, bytes] : files) {
    SCOPED_TRACE(what);
    player.Player->SetMovie(Movie(bytes));
    player.Commands.clear();
    player.Player->SetMovie(Movie(good));
    ASSERT_TRUE(Gui::Await([&] { return !player.Commands.isEmpty(); }));
    EXPECT_EQ(player.Commands, QStringList{"size 200x100"});
  }
  EXPECT_FALSE(player.Player->isVisible());
}

TEST_F(FlashTest, MovieReachesNothingOutside) {
  const Server server;
  const QByteArray address = "http://127.0.0.1:" + QByteArray::number(server.Port());
  QWidget window;
  window.show();
  Watched player(window);
  player.Player->SetMovie(
      Movie(FlashMovie({{{address + "/other.swf", "_level1"}, {address + "/page", "_blank"}},
                        {{address + "/page", "_self"}},
                        {{"javascript:new Image().src='" + address + "/picture'", "_self"}},
                        {{"call:function(word) { tell(movie, 'command', word, ''); }", "out"}},
                        {{"end", ""}}})));
  ASSERT_TRUE(Gui::Await([&] { return player.Commands.size() > 2; }));  // it has run more than once
  EXPECT_FALSE(server.WasCalled());
  EXPECT_FALSE(player.Commands.contains("out "));
}

// The children of a process and theirs, the youngest first.
std::vector<pid_t> Descendants(pid_t process) {
  std::vector<pid_t> found;
  const QString tasks = QString("/proc/%1/task/").arg(process);
  for (const QString& task : QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
    QFile children(tasks + task + "/children");
    if (!children.open(QIODevice::ReadOnly)) continue;
    for (const QByteArray& child : children.readAll().trimmed().split(' ')) {
      if (child.isEmpty()) continue;
      const std::vector<pid_t> below = Descendants(child.toInt());
      found.insert(found.end(), below.begin(), below.end());
      found.push_back(child.toInt());
    }
  }
  return found;
}

// Empty once the process is dead.
QByteArray CommandLine(pid_t process) {
  QFile line(QString("/proc/%1/cmdline").arg(process));
  return line.open(QIODevice::ReadOnly) ? line.readAll() : QByteArray();
}

// The last test: the engine of this process doesn't come back.
TEST_F(FlashTest, WhenItsHelpersHaveDiedTheNextMoviePlaysOrThePlayerIsMissing) {
  Movie(FlashMovie({{{"size", "320x160"}}, {}}));
  Form1& screen = ReadAs("Ann", "Lee");
  const auto kill = [](const char* type) {
    for (const pid_t process : Descendants(getpid())) {
      if (!CommandLine(process).contains(type)) continue;
      ::kill(process, SIGKILL);
      EXPECT_TRUE(Gui::Await([process] { return CommandLine(process).isEmpty(); }));
    }
  };
  for (const auto& [type, plays] :
       {std::pair{"none", true}, {"type=renderer", true}, {"type=zygote", false}}) {
    SCOPED_TRACE(type);
    kill(type);
    Gui::Key(screen, Qt::Key_Right);
    EXPECT_EQ(messages.Take().size(), plays ? 0 : 1);
    EXPECT_TRUE(!plays || Gui::Await([&] { return Gui::Find(screen, "ShockwaveFlash1")->isVisible(); }));
    EXPECT_TRUE(PageText().contains("Watch:"));
    Gui::Key(screen, Qt::Key_Left);
  }
}

}  // namespace
