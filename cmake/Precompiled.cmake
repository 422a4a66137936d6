# The headers of others that nearly every file includes, compiled once for each library and for the tests.
# They make the build half as long; every file names what it uses all the same.
set(TALLOWMERE_CORE_HEADERS <QByteArray> <QHash> <QList> <QString> <QStringList> <functional> <memory>)
set(TALLOWMERE_GUI_HEADERS ${TALLOWMERE_CORE_HEADERS} <QTextDocument> <QTextCursor> <QImage>)
set(TALLOWMERE_SCREENS_HEADERS ${TALLOWMERE_CORE_HEADERS}
  <QWidget> <QLabel> <QMouseEvent> <QPainter> <QPixmap> <QTextBrowser> <QTimer>)
set(TALLOWMERE_TEST_HEADERS ${TALLOWMERE_SCREENS_HEADERS} <QTest> <gtest/gtest.h>)
