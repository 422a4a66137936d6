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
    if (type != QTextDocument::ImageResource || !loader_) return {};
    const QImage picture = loader_(name.toString());
    return picture.isNull() ? QVariant() : QVariant(picture);
  }

 private:
  PictureLoader loader_;
};
