#include "content/PageList.h"

#include "platform/RunTimeError.h"

QString TopicOfPage() {
  QString topic;
  IgnoreErrors([&topic] { topic = gPageList.GetCurrentPageTopName(); });
  return topic;
}
