#include "platform/files/FileLock.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/TestProgram.h"

using Outcome = FileLock::Outcome;

TEST(FileLock, OneHolderKeepsAllOthersOutUntilItReleases) {
  const TestProgram program;
  FileLock first, second;
  EXPECT_EQ(first.Take(".lock"), Outcome::Taken);
  EXPECT_EQ(second.Take(".lock"), Outcome::HeldElsewhere);
  first.Release();
  EXPECT_FALSE(QFile::exists(program.Path(".lock")));
  EXPECT_EQ(second.Take(".lock"), Outcome::Taken);
  first.Release();  // holds nothing any more
  EXPECT_TRUE(QFile::exists(program.Path(".lock")));
  EXPECT_EQ(first.Take(".lock"), Outcome::HeldElsewhere);
}

TEST(FileLock, TheLockOfAProcessThatWasKilledIsFree) {
  const TestProgram program;
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  if (child == 0) {
    FileLock lock;
    const char taken = lock.Take(".lock") == Outcome::Taken ? 'y' : 'n';
    if (write(ready[1], &taken, 1) != 1) _exit(1);
    pause();
  }
  char taken = 0;
  ASSERT_EQ(read(ready[0], &taken, 1), 1);
  EXPECT_EQ(taken, 'y');
  FileLock lock;
  EXPECT_EQ(lock.Take(".lock"), Outcome::HeldElsewhere);
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  close(ready[0]);
  close(ready[1]);
  EXPECT_TRUE(QFile::exists(program.Path(".lock")));
  EXPECT_EQ(lock.Take(".lock"), Outcome::Taken);
}

TEST(FileLock, WhatStandsInTheFilesPlaceIsNotFollowedOrWaitedFor) {
  const TestProgram program;
  program.Write("elsewhere", "kept");
  QFile::link(program.Path("elsewhere"), program.Path("link"));
  ASSERT_EQ(mkfifo(QFile::encodeName(program.Path("pipe")).constData(), 0600), 0);
  program.Write("left", "999999\ntallowmere\nanother-machine\n");
  for (const auto& [path, expected] : {std::pair{"link", Outcome::Impossible},
                                       {"missing\\.lock", Outcome::Impossible},
                                       {"pipe", Outcome::Taken},
                                       {"left", Outcome::Taken}}) {
    FileLock lock;
    EXPECT_EQ(lock.Take(path), expected) << path;
  }
  EXPECT_EQ(program.Read("elsewhere"), "kept");
}
