#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <utility>

#include "frontend/qt/dark_desktop.h"

namespace {

constexpr uint preferDark = 1;

}  // namespace

// By the desktop portal's settings, which desktops of all makes answer.
void askForDark(std::function<void()> tell) {
  QDBusMessage question = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.portal.Desktop"),
      QStringLiteral("/org/freedesktop/portal/desktop"),
      QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("Read"));
  question << QStringLiteral("org.freedesktop.appearance") << QStringLiteral("color-scheme");
  auto* const answer = new QDBusPendingCallWatcher(
      QDBusConnection::sessionBus().asyncCall(question), QCoreApplication::instance());
  QObject::connect(answer, &QDBusPendingCallWatcher::finished, [answer, tell = std::move(tell)] {
    const QDBusPendingReply<QDBusVariant> reply = *answer;
    answer->deleteLater();
    if (reply.isError()) return;
    // A variant in a variant.
    const QVariant inner = reply.value().variant();
    const QVariant scheme =
        inner.canConvert<QDBusVariant>() ? inner.value<QDBusVariant>().variant() : inner;
    if (scheme.toUInt() == preferDark) tell();
  });
}
