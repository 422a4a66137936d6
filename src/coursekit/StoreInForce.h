// Sets the process on a store for as long as it lives: program folder, registry, code page. Who reads what is
// installed in a store does so under one.
#pragma once

#include <QString>
#include <QStringList>

class StoreInForce {
 public:
  // The real path of a store's folder.
  explicit StoreInForce(const QString& folder);
  ~StoreInForce();
  StoreInForce(const StoreInForce&) = delete;
  StoreInForce& operator=(const StoreInForce&) = delete;

  // What is malformed in its registry files.
  const QStringList& Problems() const { return problems_; }

 private:
  QStringList problems_;
};
