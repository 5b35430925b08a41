#include "ui/screen_colour.h"

#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <utility>

#include "ui/screen_cover.h"
#include "ui/screen_portal.h"

namespace quillmark {
namespace {

// Pictures of all screens, where programs may take them.
class PicturedScreens : public ScreenColour {
  public:
    ~PicturedScreens() override { PicturedScreens::giveUp(); }

    void probe(std::function<void(bool)> answer) override {
        const QString platform = QGuiApplication::platformName();
        // There the pictures hold none of the other programs' windows.
        const bool onWayland = qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
                               qEnvironmentVariable("XDG_SESSION_TYPE") == QLatin1String("wayland");
        answer((platform == QLatin1String("xcb") && !onWayland) ||
               platform == QLatin1String("windows"));
    }

    void pick(QWidget& window, Seen seen, Ended ended) override {
        giveUp();
        const auto end = [this, ended = std::move(ended)](std::optional<Couleur> colour) {
            const Ended last = ended;  // outlives the covers
            giveUp();
            last(colour);
        };
        std::vector<std::pair<QScreen*, QPixmap>> pictures;
        for (QScreen* screen : QGuiApplication::screens()) {
            pictures.emplace_back(screen, screen->grabWindow(0));
        }
        for (const auto& [screen, picture] : pictures) {
            if (picture.isNull()) {
                continue;
            }
            auto* cover = new ScreenCover(&window, picture, seen, end);
            cover->setScreen(screen);
            cover->setGeometry(screen->geometry());
            cover->showFullScreen();
            covers_.emplace_back(cover);
        }
        if (covers_.empty()) {
            return end(std::nullopt);
        }
        // Escape counts wherever the pointer is.
        covers_.front()->activateWindow();
        covers_.front()->grabKeyboard();
    }

    void giveUp() override {
        for (const QPointer<ScreenCover>& cover : std::exchange(covers_, {})) {
            if (cover) {
                cover->releaseKeyboard();
                cover->hide();
                cover->deleteLater();
            }
        }
    }

  private:
    std::vector<QPointer<ScreenCover>> covers_;
};

class PortalOrPictures : public ScreenColour {
  public:
    void probe(std::function<void(bool)> answer) override {
        // A platform without a desktop has no portal either.
        const QString platform = QGuiApplication::platformName();
        if (!portal_ ||
            (platform != QLatin1String("xcb") && !platform.startsWith(QLatin1String("wayland")))) {
            portal_.reset();
            return pictures_.probe(answer);
        }
        answer_ = answer;
        portal_->probe([this](bool works) {
            viaPortal_ = works;
            works ? answer_(true) : pictures_.probe(answer_);
        });
    }
    void pick(QWidget& window, Seen seen, Ended ended) override {
        if (!viaPortal_) {
            return pictures_.pick(window, std::move(seen), std::move(ended));
        }
        asked_ = {&window, std::move(seen), ended};
        portal_->pick(window, {}, std::move(ended));
    }
    void giveUp() override {
        asked_ = {};
        viaPortal_ ? portal_->giveUp() : pictures_.giveUp();
    }

  private:
    struct Asked {
        QPointer<QWidget> window;
        Seen seen;
        Ended ended;
    };
    // A portal that offers what it can't do: from now on as without one.
    void portalFailed() {
        viaPortal_ = false;
        const Asked asked = std::exchange(asked_, {});
        pictures_.probe([&](bool works) {
            answer_(works);
            if (works && asked.window) {
                pictures_.pick(*asked.window, asked.seen, asked.ended);
            } else if (asked.ended) {
                asked.ended(std::nullopt);
            }
        });
    }

    std::unique_ptr<ScreenColour> portal_ = portalScreenColour([this] { portalFailed(); });
    PicturedScreens pictures_;
    bool viaPortal_ = false;
    std::function<void(bool)> answer_;
    Asked asked_;
};

}  // namespace

std::unique_ptr<ScreenColour> screenColour() {
    return std::make_unique<PortalOrPictures>();
}

}  // namespace quillmark
