// The document of a page: it shows the pictures it was given and never fetches anything by name.
#pragma once

#include <QImage>
#include <QTextDocument>
#include <QUrl>
#include <QVariant>
#include <functional>

class PageDocument : public QTextDocument {
 public:
  // Gives the picture of that name, or a null image.
  using PictureLoader = std::function<QImage(const QString& name)>;

  explicit PageDocument(PictureLoader loader = {}) : loader_(std::move(loader)) {}

 protected:
  QVariant loadResource(int type, const QUrl& name) override {
    if (type != QTextDocument::ImageResource) return {};
    if (!loader_) return Nothing();
    const QImage picture = loader_(name.toString());
    return picture.isNull() ? Nothing() : picture;
  }

 private:
  // In the place of a picture that can't be had. For a picture without an answer the layout would open
  // a file of that name by itself, wherever it lies.
  static QImage Nothing() {
    QImage nothing(1, 1, QImage::Format_ARGB32);
    nothing.fill(Qt::transparent);
    return nothing;
  }

  PictureLoader loader_;
};
