#include "PrintedPage.h"

#include <QRegularExpression>
#include <QTransform>
#include <QtEndian>

namespace {

const QString kNumber = QStringLiteral(R"((-?[\d.]+))");

QList<double> Numbers(const QRegularExpressionMatch& match) {
  QList<double> numbers;
  for (const QString& number : match.capturedTexts().mid(1))
    numbers.append(number.toDouble());
  return numbers;
}

// The bytes of the stream whose dictionary stands around `at`, unpacked.
QByteArray StreamBehind(const QByteArray& pdf, qsizetype at) {
  const qsizetype begin = pdf.indexOf("stream\n", at) + 7, end = pdf.indexOf("endstream", begin);
  QByteArray packed(4, '\0');
  qToBigEndian<quint32>(1 << 24, packed.data());  // the size that is expected, no more than a hint
  return qUncompress(packed + pdf.mid(begin, end - begin));
}

// What turns the picture, a square of 1 by 1, into its place; y points upwards.
QTransform MatrixOf(const QByteArray& drawing) {
  const QRegularExpression matrix(QStringList(6, kNumber).join(u' ') + QStringLiteral(" cm\\b"));
  QTransform whole;
  auto steps = matrix.globalMatch(QString::fromLatin1(drawing));
  while (steps.hasNext()) {
    const QList<double> m = Numbers(steps.next());
    whole = QTransform(m[0], m[1], m[2], m[3], m[4], m[5]) * whole;
  }
  return whole;
}

}  // namespace

PrintedPage::PrintedPage(const QByteArray& pdf) {
  const QString text = QString::fromLatin1(pdf);
  const auto box = QRegularExpression(QStringLiteral(R"(/MediaBox \[0 0 %1 %1\])").arg(kNumber)).match(text);
  const auto image =
      QRegularExpression(QStringLiteral(R"(/Subtype /Image\n/Width (\d+)\n/Height (\d+)\n)")).match(text);
  const auto content = QRegularExpression(QStringLiteral(R"(/Contents (\d+) 0 R)")).match(text);
  if (!box.hasMatch() || !image.hasMatch() || !content.hasMatch()) return;
  Sheet = {Numbers(box)[0], Numbers(box)[1]};
  const int width = static_cast<int>(Numbers(image)[0]), height = static_cast<int>(Numbers(image)[1]);
  const QByteArray pixels = StreamBehind(pdf, image.capturedStart());
  if (pixels.size() == qsizetype{3} * width * height) {
    Picture = QImage(reinterpret_cast<const uchar*>(pixels.constData()), width, height, qsizetype{3} * width,
                     QImage::Format_RGB888)
                  .copy();
  }
  const QByteArray drawing = StreamBehind(pdf, pdf.indexOf('\n' + content.captured(1).toLatin1() + " 0 obj"));
  const QRectF unit = MatrixOf(drawing).mapRect(QRectF(0, 0, 1, 1));
  Place = {unit.left(), Sheet.height() - unit.bottom(), unit.width(), unit.height()};
}
