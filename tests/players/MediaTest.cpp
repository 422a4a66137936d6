// The player of videos, installed as it is: real files, decoded in its own time.
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>

#include "desktop/Animation_Viewer.h"
#include "frame/ProgramState.h"
#include "platform/movies/MoviePlayer.h"
#include "platform/movies/PlayerPlugins.h"
#include "support/Program.h"
#include "support/TestPrinters.h"

namespace {

const QColor kCaption(0x66, 0x66, 0xFF);  // what the captions of the film stand on, in its lowest rows

class MediaTest : public CourseTest {
 protected:
  MediaTest() {
    qputenv("PULSE_SERVER", "/none");  // no sound while others work
    store.Write("players/media.so", store.Read(TALLOWMERE_PLAYER));
    store.Write("registry/media.reg", store.Read(TALLOWMERE_PLAYER_REG));
  }

  static QString Page(const QString& file) {
    const QString lines = QString("line\\par ").repeated(40);
    return "top\\par {\\object\\objemb\\objw6000\\objh3600{\\*\\objname " + file + "}}\\par " + lines;
  }
  // The page before the one that has the video.
  Form1& ReadBefore(const QByteArray& bytes) {
    store.Write("rt0101/Movies/film.wmv", bytes);
    store.Write("rt0101/0002.txm", PageFile(Page("film.wmv")));
    return ReadAs("Ann", "Lee");
  }
  static QWidget& ImageFrame() { return *Gui::Find(Default<Form1>(), "ImageFrame"); }
  static QImage Picture(QWidget& widget) { return widget.grab().toImage(); }
  // The threads of the player that are there.
  int Threads() const {
    int count = 0;
    for (const QString& task : QDir("/proc/self/task").entryList(QDir::Dirs | QDir::NoDotAndDotDot))
      count += store.Read("/proc/self/task/" + task + "/comm").startsWith("movie") ? 1 : 0;
    return count;
  }
  static bool IsLike(QColor one, QColor other) {
    return std::abs(one.red() - other.red()) + std::abs(one.green() - other.green()) +
               std::abs(one.blue() - other.blue()) <
           40;
  }
  static bool ShowsFilm(QWidget& widget) {
    const QImage picture = Picture(widget);
    return IsLike(picture.pixelColor(8, picture.height() - 4), kCaption);
  }
};

TEST_F(MediaTest, AVideoPlaysOnItsPageAndEndsWithIt) {
  Form1& screen = ReadBefore(store.Read(TALLOWMERE_FILM));
  Gui::Click(screen, "NextBtn");
  ASSERT_TRUE(Gui::Await([] { return ShowsFilm(ImageFrame()); }));
  const QImage first = Picture(ImageFrame());
  EXPECT_EQ(first.size(), PageView().ObjectRect(PageView().Objects().value(0).Id).size());
  EXPECT_TRUE(Gui::Await([&first] { return Picture(ImageFrame()) != first; }));
  EXPECT_GT(Threads(), 0);

  Gui::Click(screen, "toolBar_But");
  Gui::Click(screen, "ShockwaveCtl1");
  EXPECT_FALSE(Gui::Find(screen, "toolBar_Slice(0)")->isVisible());

  Gui::Click(screen, "NextBtn");
  Gui::Settle();
  EXPECT_EQ(PageView().viewport()->findChild<QWidget*>("ShockwaveCtl1"), nullptr);
  EXPECT_EQ(Threads(), 0);
  EXPECT_FALSE(ImageFrame().isVisible());
}

// A server that takes the connection and never answers.
class MuteServer {
 public:
  explicit MuteServer(const QString& path) : socket_(socket(AF_UNIX, SOCK_STREAM, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, QFile::encodeName(path).constData(), sizeof address.sun_path);
    listens_ = bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
               listen(socket_, 1) == 0;
  }
  ~MuteServer() { close(socket_); }
  bool Listens() const { return listens_; }

 private:
  int socket_;
  bool listens_ = false;
};

TEST_F(MediaTest, ASoundServerThatHangsHoldsNobodyUp) {
  const MuteServer server(store.PathBeside("sound"));
  ASSERT_TRUE(server.Listens());
  qputenv("PULSE_SERVER", QFile::encodeName("unix:" + store.PathBeside("sound")));
  Form1& screen = ReadBefore(store.Read(TALLOWMERE_FILM));
  Gui::Click(screen, "NextBtn");
  ASSERT_TRUE(Gui::Await([] { return ShowsFilm(ImageFrame()); }));
  EXPECT_EQ(Threads(), 2);  // the sound still waits for an answer
  QElapsedTimer leaving;
  leaving.start();
  Gui::Click(screen, "NextBtn");
  EXPECT_EQ(Threads(), 0);
  EXPECT_LT(leaving.elapsed(), 3000);  // the library itself gives up after half a minute
}

TEST_F(MediaTest, AFileThatIsNoVideoShowsNothingAndLeadsNowhere) {
  const QByteArray film = store.Read(TALLOWMERE_FILM);
  store.Write("rt0101/Movies/other.wmv", film);
  QByteArray damaged = film.left(4000);
  damaged.replace(100, 2000, QByteArray(2000, '\xFF'));
  const QByteArray other = QFile::encodeName(store.Path("rt0101/Movies/other.wmv"));
  const QByteArrayList files = {
      "",
      "just text",
      film.left(60),
      damaged,
      QByteArray("RIFF\xFF\xFF\xFF\x7F"
                 "AVI LIST\xFF\xFF\xFF\x7F",
                 20),
      "#EXTM3U\n#EXT-X-TARGETDURATION:9\n#EXTINF:9,\nfile://" + other + "\n#EXT-X-ENDLIST\n",
      "ffconcat version 1.0\nfile other.wmv\n",
      "<asx version=\"3.0\"><entry><ref href=\"other.wmv\"/></entry></asx>",
      "[Reference]\nRef1=file://" + other + "\n",
  };
  Form1& screen = ReadBefore("");
  for (const QByteArray& bytes : files) {
    store.Write("rt0101/Movies/film.wmv", bytes);
    Gui::Click(screen, "NextBtn");
    EXPECT_TRUE(Gui::Await([this] { return Threads() == 0; })) << bytes.left(20).toStdString();
    Gui::Settle();
    QImage white = Picture(ImageFrame());
    const QImage shown = white;
    white.fill(Qt::white);
    EXPECT_EQ(shown, white) << bytes.left(20).toStdString();
    EXPECT_TRUE(PageText().startsWith("top"));
    Gui::Click(screen, "Prev");
  }
  const QString path = store.Path("rt0101/Movies/film.wmv");
  QFile::remove(path);
  Gui::Click(screen, "NextBtn");
  Gui::Click(screen, "Prev");
  EXPECT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
  Gui::Click(screen, "NextBtn");
  EXPECT_TRUE(PageText().startsWith("top"));
  Gui::Click(screen, "Prev");
  EXPECT_EQ(PageText(), "rt0101 0001.txm");
  EXPECT_EQ(messages.Take(), QStringList());
}

TEST_F(MediaTest, ACutVideoShowsWhatItHasAndKeepsIt) {
  const int cut = 30000;  // bytes; about a second of it
  Form1& screen = ReadBefore(store.Read(TALLOWMERE_FILM).left(cut));
  Gui::Click(screen, "NextBtn");
  ASSERT_TRUE(Gui::Await([] { return ShowsFilm(ImageFrame()); }));
  EXPECT_TRUE(Gui::Await([this] { return Threads() == 0; }));  // it is over
  Gui::Settle();
  EXPECT_TRUE(ShowsFilm(ImageFrame()));
}

TEST_F(MediaTest, TheVideoFillsThePlayerAsItIsTold) {
  using Fit = MoviePlayer::Fit;
  ReadAs("Ann", "Lee");
  QWidget container;
  MoviePlayer& player = AddPlayer(container, "MediaPlayer.MediaPlayer.1", "player");
  player.resize(400, 400);  // the film is 400 by 240
  player.SetBackColor(0x0000FF);
  player.SetMovie(TALLOWMERE_FILM);
  // The caption reaches the lowest row, or red is below it; at the left edge stands a post of the shelf.
  ASSERT_TRUE(Gui::Await([&] { return IsLike(Picture(player).pixelColor(8, 310), kCaption); }));
  EXPECT_EQ(Picture(player).pixelColor(8, 395), QColor(Qt::red));
  EXPECT_EQ(Picture(player).pixelColor(8, 5), QColor(Qt::red));
  player.Stop();
  const QImage held = Picture(player);
  player.Play();
  EXPECT_TRUE(Gui::Await([&] { return Picture(player) != held; }));
  for (const Fit fit : {Fit::Cover, Fit::Stretch}) {
    player.SetFit(fit);
    EXPECT_TRUE(IsLike(Picture(player).pixelColor(8, 395), kCaption));
    const bool seesWall = IsLike(Picture(player).pixelColor(3, 100), QColor(0xF0, 0xF0, 0xFF));
    EXPECT_EQ(seesWall, fit == Fit::Stretch);  // cut off otherwise
  }
}

TEST_F(MediaTest, TheWaitWindowPlaysItsMovieAgainAndAgain) {
  TestPrinters printers(store.PathBeside("printed.pdf"));
  ReadAs("Ann", "Lee");
  script.When("frmPrinterDialog", [](Form& dialog) { Gui::Click(dialog, "cmdOK"); });
  script.When("Animation_Viewer", [this](Form& viewer) {
    QWidget& movie = *Gui::Find(viewer, "Animation1");
    const QImage still = Picture(movie);
    QImage first;
    EXPECT_TRUE(Gui::Await([&] { return (first = Picture(movie)) != still; }));
    EXPECT_TRUE(Gui::Await([&] { return Picture(movie) != first; }));
    EXPECT_TRUE(Gui::Await([&] { return Picture(movie) == first; }));  // from its beginning
    clock.Advance(2000);
  });
  Gui::Click(Default<Form1>(), "toolBar_But");
  Gui::Click(Default<Form1>(), "toolBar_Slice(0)");
  EXPECT_EQ(LoadedForm<Animation_Viewer>(), nullptr);
  EXPECT_EQ(printers.Take().size(), 1);
  EXPECT_EQ(Threads(), 0);
}

}  // namespace
