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
        answer(platform == QLatin1String("xcb") || platform == QLatin1String("windows"));
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
        portal_->probe([this, answer](bool works) {
            viaPortal_ = works;
            works ? answer(true) : pictures_.probe(answer);
        });
    }
    void pick(QWidget& window, Seen seen, Ended ended) override {
        used().pick(window, std::move(seen), std::move(ended));
    }
    void giveUp() override { used().giveUp(); }

  private:
    ScreenColour& used() { return viaPortal_ ? *portal_ : pictures_; }

    std::unique_ptr<ScreenColour> portal_ = portalScreenColour();
    PicturedScreens pictures_;
    bool viaPortal_ = false;
};

}  // namespace

std::unique_ptr<ScreenColour> screenColour() {
    return std::make_unique<PortalOrPictures>();
}

}  // namespace quillmark
