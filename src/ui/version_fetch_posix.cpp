#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>
#include <QUrl>

#include "ui/guard.h"
#include "ui/qt_text.h"
#include "ui/version_fetch.h"

namespace quillmark {

void fetchVersionNote(QObject* owner, const std::string& address,
                      std::function<void(const std::optional<std::string>&)> done) {
    const QUrl url(toQt(address), QUrl::StrictMode);
    if (url.scheme() != QLatin1String("http") && url.scheme() != QLatin1String("https")) {
        QMetaObject::invokeMethod(owner,
                                  guarded("fetchVersionNote", "frmUpdate",
                                          [done = std::move(done)] { done(std::nullopt); }),
                                  Qt::QueuedConnection);
        return;
    }
    auto* manager = new QNetworkAccessManager(owner);
    QNetworkReply* reply = manager->get(QNetworkRequest(url));
    // In all, not from byte to byte.
    QTimer::singleShot(kFetchLimit, reply, &QNetworkReply::abort);
    QObject::connect(reply, &QNetworkReply::readyRead, reply, [reply] {
        if (reply->bytesAvailable() > kLongestVersionNote) {
            reply->abort();
        }
    });
    QObject::connect(
        reply, &QNetworkReply::finished, owner,
        guarded("fetchVersionNote", "frmUpdate", [manager, reply, done = std::move(done)] {
            manager->deleteLater();  // the reply goes with it
            std::optional<std::string> note;
            if (reply->error() == QNetworkReply::NoError) {
                note = reply->readAll().toStdString();
            }
            done(note);
        }));
}

}  // namespace quillmark
