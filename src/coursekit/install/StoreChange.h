// Changes a store step by step, as a whole or not at all: a journal says what is to be done, and the next run
// finishes what was cut short, or takes it back where it could not be done. Used by install and remove.
#pragma once

#include <QList>
#include <QString>

struct StoreStep {
  enum class Kind { Put, Drop };

  Kind What = Kind::Put;
  QString Path;  // of a file or folder, below the store
  QString From;  // of what is put, below the new things
};

class StoreChange {
 public:
  // How a new thing takes an old one's place; not every file system can exchange them in one step.
  enum class Swap { Exchange, TwoRenames };

  // The real path of the store, whose lock for a change is held.
  explicit StoreChange(const QString& store, Swap swap = Swap::Exchange);

  // Whether a change was cut short.
  bool IsOpen() const;
  // Finishes it, or takes it back where that had begun.
  void Resume();
  // Does the steps in order. `staging` is a folder on the store's disk, and what is put lies in its folder
  // "new"; the folder is used up. When a step fails the store is as it was, and the failure is a RunTimeError
  // that names the path.
  void Run(const QString& staging, const QList<StoreStep>& steps);

 private:
  struct Step {
    StoreStep What;
    quint64 Inode = 0;  // of what is put: tells whether it is in place already
  };

  QList<Step> ReadJournal() const;
  void Do(const QList<Step>& steps) const;
  void DoStep(const Step& step) const;
  void TakeBack(const QList<Step>& steps) const;
  void TakeBackStep(const Step& step) const;
  void SwapIn(const StoreStep& step) const;
  void Close() const;
  QString Place(const QString& path) const { return store_ + u'/' + path; }
  QString New(const QString& path) const;
  QString Old(const QString& path) const;

  QString store_, folder_;
  Swap swap_;
};
