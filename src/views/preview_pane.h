// The preview: the selected object alone, as a mosaic or over the last polygon, by day and night.
#pragma once

#include "bitmap/layers.h"
#include "session/change.h"
#include "views/object_pictures.h"

namespace quillmark {

inline constexpr int kPaneSide = 240;  // logical pixels
inline constexpr int kZoomLow = 100;
inline constexpr int kZoomHigh = 800;
inline constexpr int kZoomStep = 100;
inline constexpr int kZoomFirst = 300;

// `optAperçu`.
enum class PreviewMode : std::uint8_t { single, mosaic, superposition };

struct PreviewOptions {
    PreviewMode mode = PreviewMode::single;
    int sldZoom = kZoomFirst;
    double ratio = 1;  // device pixels to a logical one
    Ground ground = Ground::map;
    bool blended = false;  // "Aperçu avec transparence"
};

class PreviewPane {
  public:
    explicit PreviewPane(const Document& document) : document_(document) {}

    PreviewOptions options;
    // The slider and its label show in this mode alone.
    [[nodiscard]] bool showsZoom() const { return options.mode == PreviewMode::single; }
    [[nodiscard]] int Facteur() const;
    [[nodiscard]] std::string lblZoom(const Traduction& traduction) const;

    void select(const ObjectRef& object);
    // Told after the selection has followed the same change.
    void follow(const Change& change);
    [[nodiscard]] const ObjectRef& object() const { return object_; }
    // What superposition lies on; of no kind without one.
    [[nodiscard]] const ObjectRef& PolygoneAffiche() const { return PolygoneAffiche_; }

    struct Faults {
        PictureFaults object;
        PictureFaults below;
        [[nodiscard]] bool any() const { return object.any() || below.any(); }
    };

    // `maj_Aperçu`: the panes, of `kPaneSide` logical pixels in device pixels, the ground and
    // marks painted.
    struct Panes {
        Image day;
        Image night;
        bool hasNight = false;  // the night pane shows a picture of its own
        Faults dayFaults;
        Faults nightFaults;
    };
    [[nodiscard]] Panes maj_Aperçu() const;
    // One reason a line, each told once; empty without faults.
    [[nodiscard]] std::string tip(const Faults& faults, const Traduction& traduction) const;

    // Members of the selected group, for "<" and ">"; 0 for other kinds.
    [[nodiscard]] int memberCount() const;

  private:
    [[nodiscard]] Image pane(const ObjectPictures& pictures, const ObjectPictures& below,
                             bool night) const;
    void remember(const ObjectRef& polygon);
    [[nodiscard]] ObjectRef rememberedPolygon() const;

    const Document& document_;
    ObjectRef object_;
    ObjectRef PolygoneAffiche_;
    // Of the last polygon, to find it again when anything may have moved: its type, and which one
    // it is in the row of those that share it.
    std::string lastType_;
    std::string lastSubType_;
    std::ptrdiff_t lastRank_ = 0;
};

}  // namespace quillmark
