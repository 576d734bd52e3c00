#include "drawing/Raster.h"
#include "formats/PngFile.h"
#include "tests/base/Threads.h"

#include <QPainter>
#include <QSet>

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <pthread.h>
#include <random>
#include <sys/mman.h>

namespace {
/// Runs `work` on a stack at a page of the caller's choice, filled with `rest` of earlier work.
void runOnStackAt(quintptr page, char rest, const std::function<void()> &work)
{
    constexpr std::size_t bytes = std::size_t{512} << 10;
    void *const place = reinterpret_cast<void *>(page << 12); // NOLINT(performance-no-int-to-ptr): nothing is there yet
    void *const stack = mmap(place, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(stack, MAP_FAILED);
    std::fill_n(static_cast<char *>(stack), bytes, rest);

    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstack(&attributes, stack, bytes), 0);
    pthread_t thread{};
    const auto run = [](void *todo) -> void * {
        (*static_cast<const std::function<void()> *>(todo))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, run, const_cast<std::function<void()> *>(&work)), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
    munmap(stack, bytes);
}

/// Steep lines and an arc on one colour, in one section: many rows that are nearly alike.
QImage chart()
{
    QImage picture(3840, 45, Raster::format);
    picture.fill(QColor(30, 75, 145));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(250, 200, 80), 1.5));
    for (int i = 0; i < 6; ++i)
        painter.drawLine(QPointF(320 + 640 * i, 0), QPointF(320 + 640 * i + (i % 2 == 0 ? -1 : 1) * (12 + 5 * i), 45));
    painter.drawEllipse(QRectF(300.5, -200, 135, 500));
    return picture;
}

QByteArray fileByThreads(int threads, const QImage &picture)
{
    const Threads available(threads);
    return *PngFile::encode(picture);
}
} // namespace

TEST(PngFileBytes, AreTheSameWhereverTheEncoderStandsInMemory)
{
    const QImage picture = chart();
    std::mt19937_64 engine(11);
    std::uniform_int_distribution<quintptr> pages(quintptr{1} << 28, quintptr{1} << 34);
    QSet<QByteArray> files;
    for (int i = 0; i < 3000; ++i)
        runOnStackAt(pages(engine), static_cast<char>(i % 2 == 0 ? 0 : i),
                     [&] { files.insert(*PngFile::encode(picture)); });
    EXPECT_EQ(files.size(), 1);
}

TEST(PngFileBytes, AreTheSameWhateverTheNumberOfThreads)
{
    for (const int height : {1, 2, 127, 128, 255, 256, 257, 1023}) {
        QImage picture = chart().scaled(997, height);
        for (const QColor last : {QColor(1, 2, 3), QColor(1, 2, 3, 254)}) {
            picture.setPixelColor(996, height - 1, last);
            const QByteArray single = fileByThreads(1, picture);
            EXPECT_EQ(fileByThreads(2, picture), single) << height;
            EXPECT_EQ(fileByThreads(8, picture), single) << height;
            // In the header, behind the signature, a length, a type, two sides and the bits of a channel.
            EXPECT_EQ(single[25], last.alpha() == 255 ? 2 : 6) << height;
            EXPECT_EQ(QImage::fromData(single).pixelColor(996, height - 1), last) << height;
        }
    }
}
