#pragma once

#include <QFontMetricsF>
#include <QRectF>
#include <QString>
#include <vector>

#include "model/junctionboxes/junction_box.h"

namespace calyx::ui {

// What stands in the picture of a junction box: on the left the load cells, at the top those that belong to
// no platform, then band by band those of the platforms; platforms in the middle, the system on the right. A
// plan is made anew for every width and content. Places are in device-independent pixels.
struct BoxPlan {
    enum class Kind { Cell, Platform, System };
    struct Part {
        Kind kind = Kind::Cell;
        int number = 0;
        int platform = 0;  // of a cell; 0: none
        QRectF rect = {};
        QString name = {}, words = {};  // words: the small print
        QString spoken = {};            // the whole of it, for tool tips and screen readers
        bool broken = false;  // a cell at two places or without a connector, a part that is not valid
        bool used = true;     // of a platform: in the system
    };
    struct Band {
        int platform = 0;  // 0: the cells that belong to none
        QRectF rect;
        QString title;  // of the band of no platform
    };

    std::vector<Part> parts;  // cells band by band, platforms, system
    std::vector<Band> bands;
    QRectF lanes[3];  // headings: cells, platforms, system
    double height = 0;
    int unassigned = 0;

    static double LeastWidth();
    static BoxPlan Of(const CJunctionBox& box, const ResourceTexts& texts, double width, double textHeight);

    int Find(Kind kind, int number) const;   // place among the parts; -1: not there
    int PartAt(const QPointF& point) const;  // -1: none
    const Band* BandAt(const QPointF& point) const;
    // The part next to one in a direction (-1, 0 or 1 each); itself where there is none.
    int Next(int part, int dx, int dy) const;
};

// As a platform is named: by its name, or by its number where that is empty.
QString PlatformName(const CJunctionBox& box, const ResourceTexts& texts, int platform);

}  // namespace calyx::ui
