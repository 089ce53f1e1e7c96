#pragma once

#include <QImage>
#include <QRect>

namespace UtilsDllTest {

// The rectangle covered by pixels that are at least half opaque; null if none.
inline QRect inkRect(const QImage& image)
{
    QRect rect;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) >= 128)
                rect |= QRect(x, y, 1, 1);
    return rect;
}

} // namespace UtilsDllTest
