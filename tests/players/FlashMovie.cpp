#include "players/FlashMovie.h"

#include <QtEndian>

namespace {

enum Tag { kEnd = 0, kShowFrame = 1, kDoAction = 12 };
constexpr char kGetUrl = '\x83', kPush = '\x96';
constexpr char kGetVariable = '\x1C', kGetMember = '\x4E', kCallMethod = '\x52', kPop = '\x17';
const QByteArray kCall = QByteArrayLiteral("call:");
constexpr int kLongTag = 0x3F;

template <typename Number>
QByteArray Bytes(Number number) {
  const Number ordered = qToLittleEndian(number);
  return {reinterpret_cast<const char*>(&ordered), sizeof ordered};
}

QByteArray Tagged(Tag tag, const QByteArray& content) {
  return Bytes(static_cast<quint16>(tag << 6 | kLongTag)) + Bytes(static_cast<quint32>(content.size())) +
         content;
}

// With a number of arguments behind the texts where there is one.
QByteArray Push(const QByteArrayList& texts, int count = 0) {
  QByteArray values;
  for (const QByteArray& text : texts)
    values += '\0' + text + '\0';
  if (count > 0) values += '\x07' + Bytes(count);
  return kPush + Bytes(static_cast<quint16>(values.size())) + values;
}

QByteArray ScriptCall(const QByteArray& function, const QByteArray& argument) {
  return Push({argument, function}, 2) + Push({"flash"}) + kGetVariable + Push({"external"}) + kGetMember +
         Push({"ExternalInterface"}) + kGetMember + Push({"call"}) + kCallMethod + kPop;
}

QByteArray Action(const QByteArray& command, const QByteArray& arguments) {
  if (command.startsWith(kCall)) return ScriptCall(command.mid(kCall.size()), arguments);
  const QByteArray scheme = command.contains(':') ? QByteArray() : QByteArrayLiteral("FSCommand:");
  const QByteArray texts = scheme + command + '\0' + arguments + '\0';
  return kGetUrl + Bytes(static_cast<quint16>(texts.size())) + texts;
}

}  // namespace

QByteArray FlashMovie(const std::vector<FlashCommands>& frames) {
  // 0 to 4000 and 0 to 2000 twentieths of a pixel, 13 bits each.
  QByteArray body = QByteArray::fromHex("6800 1f40 0003 e800") + Bytes(quint16{10 << 8}) +
                    Bytes(static_cast<quint16>(frames.size()));
  for (const FlashCommands& commands : frames) {
    QByteArray actions;
    for (const auto& [command, arguments] : commands)
      actions += Action(command, arguments);
    if (!actions.isEmpty()) body += Tagged(kDoAction, actions + '\0');
    body += Tagged(kShowFrame, {});
  }
  body += Tagged(kEnd, {});
  return "FWS\x08" + Bytes(static_cast<quint32>(body.size() + 8)) + body;
}
