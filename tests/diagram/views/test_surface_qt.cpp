// The plane drawn through QPainter into an image, as the diagram widget and the printer draw it.
#include "../LigneTransit.h"
#include "core/Etude.h"
#include "diagram/Plan.h"
#include "diagram/views/SurfaceQt.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <cmath>
#include <gtest/gtest.h>

using namespace tournesol;

TEST(SurfaceQt, PlanEtZoneDeTransitDansUneImage) {
    Etude e = LigneTransit(0, 115.0, 20.0);

    QImage image(600, 600, QImage::Format_RGB32);
    image.fill(Qt::gray);
    {
        QPainter peintre(&image);
        SurfaceQt surface(peintre, 600.0, 600.0);
        Plan plan(e, surface);
        DrawRelay(plan, OptionsAffichage{});
    }
    EXPECT_EQ(image.pixelColor(5, 590), QColor(Qt::white)); // cleared to the background
    // The R axis crosses the middle row in the foreground colour.
    EXPECT_LT(std::min(image.pixelColor(100, 299).red(), image.pixelColor(100, 300).red()), 200);
    EXPECT_EQ(image.pixelColor(540, 560), QColor(Qt::white));
    if (!qEnvironmentVariableIsEmpty("TOURNESOL_IMAGE"))
        image.save(qEnvironmentVariable("TOURNESOL_IMAGE"));
    // N1 lies at 100 ohms from the origin, below the line's angle: a red stroke goes there.
    const Complexe n1 = e.PointsTransit[0];
    const int x = static_cast<int>(std::lround((n1.Re + 150.0) * 2.0));
    const int y = static_cast<int>(std::lround((150.0 - n1.Im) * 2.0));
    bool rouge = false;
    for (int dx = -3; dx <= 3; ++dx)
        for (int dy = -3; dy <= 3; ++dy) {
            const QColor c = image.pixelColor(x + dx, y + dy);
            rouge = rouge || (c.red() > 200 && c.green() < 80 && c.blue() < 80);
        }
    EXPECT_TRUE(rouge) << x << ", " << y;
}

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv); // the windows' tests share this program
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
