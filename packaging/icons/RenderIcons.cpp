// render-icons LARGE.svg SMALL.svg FOLDER SIZE...: draws the program's icon as FOLDER/SIZE.png, in each size.

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

namespace {

using namespace Qt::StringLiterals;

/// In pixels; up to it the picture for small sizes is taken.
constexpr int largestSmallSize = 32;

bool render(const QString& picture, int size, const QString& file)
{
    QSvgRenderer renderer(picture);
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(0, 0, size, size));
    painter.end();
    return renderer.isValid() && image.save(file, "PNG");
}

} // namespace

int main(int argc, char** argv)
{
    constexpr int firstSize = 4;
    if (argc <= firstSize) {
        std::fputs("usage: render-icons LARGE.svg SMALL.svg FOLDER SIZE...\n", stderr);
        return 2;
    }
    for (int i = firstSize; i < argc; ++i) {
        const int size = QByteArray(argv[i]).toInt();
        const QString picture = QString::fromLocal8Bit(argv[size <= largestSmallSize ? 2 : 1]);
        const QString file = u"%1/%2.png"_s.arg(QString::fromLocal8Bit(argv[3]), QString::number(size));
        if (!render(picture, size, file)) {
            std::fprintf(stderr, "%s can't be drawn\n", qPrintable(file));
            return 1;
        }
    }
    return 0;
}
