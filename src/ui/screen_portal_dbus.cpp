// Wayland lets no program read the screen, but the desktop's portal does so on its behalf.
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>
#include <QVariantMap>
#include <QWidget>
#include <algorithm>
#include <array>
#include <cmath>

#include "ui/guard.h"
#include "ui/screen_portal.h"

namespace quillmark {
namespace {

constexpr QLatin1String kService("org.freedesktop.portal.Desktop");
constexpr QLatin1String kPath("/org/freedesktop/portal/desktop");
constexpr QLatin1String kScreenshot("org.freedesktop.portal.Screenshot");
constexpr QLatin1String kRequest("org.freedesktop.portal.Request");
constexpr QLatin1String kResponse("Response");
constexpr unsigned kFirstVersionThatPicks = 2;
// Of a request: 0 is done, 1 the user's no, everything else a failure.
constexpr unsigned kDone = 0;
constexpr unsigned kGivenUp = 1;
constexpr int kProbeMilliseconds = 3000;
// Longer than anybody looks for a colour: some desktops answer the call only at its end.
constexpr int kPickMilliseconds = 600000;

std::optional<Couleur> colourOf(const QVariant& value) {
    if (!value.canConvert<QDBusArgument>()) {
        return std::nullopt;
    }
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QLatin1String("(ddd)")) {
        return std::nullopt;
    }
    std::array<double, 3> parts{};
    argument.beginStructure();
    argument >> parts[0] >> parts[1] >> parts[2];
    argument.endStructure();
    const auto byte = [](double part) {
        return static_cast<std::uint8_t>(std::lround(std::clamp(part, 0.0, 1.0) * 255));
    };
    return couleurFromRgb(byte(parts[0]), byte(parts[1]), byte(parts[2]));
}

QString nameOf(const QWidget& window) {
    return QGuiApplication::platformName() == QLatin1String("xcb")
               ? QStringLiteral("x11:") + QString::number(window.window()->winId(), 16)
               : QString();
}

class PortalScreen : public QObject, public ScreenColour {
    Q_OBJECT

  public:
    explicit PortalScreen(std::function<void()> failed) : failed_(std::move(failed)) {}
    ~PortalScreen() override { PortalScreen::giveUp(); }

    void probe(std::function<void(bool)> answer) override {
        QDBusMessage call = QDBusMessage::createMethodCall(
            kService, kPath, QStringLiteral("org.freedesktop.DBus.Properties"),
            QStringLiteral("Get"));
        call << QString(kScreenshot) << QStringLiteral("version");
        whenDone(call, kProbeMilliseconds, [answer](const QDBusPendingCall& done) {
            const QDBusPendingReply<QVariant> reply = done;
            answer(!reply.isError() && reply.value().toUInt() >= kFirstVersionThatPicks);
        });
    }

    void pick(QWidget& window, Seen /*seen*/, Ended ended) override {
        giveUp();
        ended_ = std::move(ended);
        const QString token = QStringLiteral("quillmark%1").arg(++requests_);
        QString sender = bus_.baseService().mid(1);
        sender.replace(QLatin1Char('.'), QLatin1Char('_'));
        // Known before the call, so that no answer is missed.
        listenTo(kPath + QStringLiteral("/request/") + sender + QLatin1Char('/') + token);
        QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, kScreenshot,
                                                           QStringLiteral("PickColor"));
        call << nameOf(window) << QVariantMap{{QStringLiteral("handle_token"), token}};
        whenDone(call, kPickMilliseconds, [this, request = request_](const QDBusPendingCall& done) {
            const QDBusPendingReply<QDBusObjectPath> reply = done;
            if (request != request_) {
                return;
            }
            if (reply.isError()) {
                fail();
            } else if (reply.value().path() != request_) {
                listenTo(reply.value().path());
            }
        });
    }

    void giveUp() override {
        if (!request_.isEmpty()) {
            bus_.asyncCall(QDBusMessage::createMethodCall(kService, request_, kRequest,
                                                          QStringLiteral("Close")));
        }
        listenTo({});
        ended_ = {};
    }

  private:
    Q_SLOT void respond(uint response, const QVariantMap& results) {
        const std::optional<Couleur> colour =
            response == kDone ? colourOf(results.value(QStringLiteral("color"))) : std::nullopt;
        if (colour || response == kGivenUp) {
            end(colour);
        } else {
            fail();
        }
    }
    void whenDone(const QDBusMessage& call, int milliseconds,
                  std::function<void(const QDBusPendingCall&)> done) {
        auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call, milliseconds), this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this,
                guarded("picPicker_Click", "frmPalette",
                        [watcher, done = std::move(done)](QDBusPendingCallWatcher* /*self*/) {
                            watcher->deleteLater();
                            done(*watcher);
                        }));
    }
    void listenTo(const QString& request) {
        if (!request_.isEmpty()) {
            bus_.disconnect(kService, request_, kRequest, kResponse, this,
                            SLOT(respond(uint, QVariantMap)));
        }
        request_ = request;
        if (!request_.isEmpty()) {
            bus_.connect(kService, request_, kRequest, kResponse, this,
                         SLOT(respond(uint, QVariantMap)));
        }
    }
    void end(std::optional<Couleur> colour) {
        listenTo({});
        if (const Ended ended = std::exchange(ended_, {})) {
            guarded("picPicker_End", "frmPalette", ended)(colour);
        }
    }

    void fail() {
        listenTo({});
        ended_ = {};
        guarded("picPicker_Click", "frmPalette", failed_)();
    }

    std::function<void()> failed_;
    QDBusConnection bus_ = QDBusConnection::sessionBus();
    QString request_;  // object path, empty without a pick
    Ended ended_;
    int requests_ = 0;
};

}  // namespace

std::unique_ptr<ScreenColour> portalScreenColour(std::function<void()> failed) {
    return std::make_unique<PortalScreen>(std::move(failed));
}

}  // namespace quillmark

#include "screen_portal_dbus.moc"
