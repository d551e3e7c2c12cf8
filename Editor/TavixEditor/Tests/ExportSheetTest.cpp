// What is asked before an export, and what is told of it.
#include "EditorWindow.h"

#include "TavixEditor/App/Words.h"
#include "TavixEditor/Windows/ExportChoice.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Media/VideoFile.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QSpinBox>

#include <cmath>
#include <random>

namespace tavix::editor {
namespace {

TEST(ExportChoice, NamesTheFileByWhatIsInIt) {
    using enum VideoCodec;
    const auto name = [](ExportFormat format, VideoCodec codec, ExportContainer container) {
        return exportFilename("film", {.format = format, .codec = codec, .container = container});
    };
    EXPECT_EQ(name(ExportFormat::video, h264, ExportContainer::mp4), "film.mp4");
    EXPECT_EQ(name(ExportFormat::video, hevc, ExportContainer::mov), "film.mov");
    EXPECT_EQ(name(ExportFormat::video, proRes4444, ExportContainer::mp4), "film.mov");
    EXPECT_EQ(name(ExportFormat::gif, h264, ExportContainer::mov), "film.gif");
    EXPECT_EQ(name(ExportFormat::video, vp9, ExportContainer::webm), "film.webm");
    EXPECT_EQ(name(ExportFormat::video, vp9Alpha, containersOf(vp9Alpha).front()), "film.webm");
    EXPECT_EQ(name(ExportFormat::webp, h264, ExportContainer::mov), "film.webp");
    EXPECT_EQ(name(ExportFormat::png, h264, ExportContainer::mp4), "film-pictures");
    EXPECT_EQ(exportFilename("", {}), "composition.mp4");
    EXPECT_EQ(exportTarget("/a/film-pictures", {.format = ExportFormat::png}), "/a/film-pictures/%05d.png");
    EXPECT_EQ(exportTarget("/a/film.gif", {.format = ExportFormat::gif}), "/a/film.gif");
}

TEST(ExportChoice, TellsWhatIsLeftFromWhatIsDone) {
    EXPECT_TRUE(std::isinf(remainingSec(0, 5)));
    EXPECT_NEAR(remainingSec(0.25, 10), 30, 1e-9);
    EXPECT_EQ(remainingSec(1, 10), 0);
}

class ExportSheetOf : public EditorWindow {
protected:
    void exportTo(const std::filesystem::path& target) {
        click(sheet, QStringLiteral("Export…"));
        QFileDialog* asked = nullptr;
        ASSERT_TRUE(
            until([&] { return (asked = sheet->findChild<QFileDialog*>(QStringLiteral("exportTarget"))); }));
        Q_EMIT asked->fileSelected(QString::fromStdString(target.string()));
    }
    void openSheet() {
        open(makeBundle("square"));
        window->actions().exportFilm->trigger();
        sheet = dialog("exportSheet");
        ASSERT_TRUE(sheet);
    }
    // The box that the label of a form names.
    QComboBox* box(const QString& label) {
        for (auto* one : sheet->findChildren<QLabel*>())
            if (one->buddy() && one->text().remove(QLatin1Char('&')) == label)
                return qobject_cast<QComboBox*>(one->buddy());
        return nullptr;
    }
    static QStringList wordsIn(const QComboBox* box) {
        QStringList all;
        for (int i = 0; i < box->count(); ++i) all << box->itemText(i);
        return all;
    }
    void coverWithNoise() {
        QImage noise(400, 400, QImage::Format_RGB32);
        std::mt19937 random(7);
        for (int y = 0; y < 400; ++y)
            for (int x = 0; x < 400; ++x) noise.setPixel(x, y, QRgb(random()) | 0xff000000);
        ASSERT_TRUE(noise.save(pathWords(*state().bundle() / "noise.png")));
        studio->model.update("Noise", [](EditState& changed) {
            ImageContent picture;
            picture.path = "noise.png";
            picture.heightFraction = 1;
            changed.spec.scenes[0].layers[0].content = picture;
        });
    }
    QString estimate() { return sheet->findChild<QLabel*>(QStringLiteral("exportEstimate"))->text(); }

    QWidget* sheet = nullptr;
};

TEST_F(ExportSheetOf, OffersWhatEachFormatKnows) {
    openSheet();
    const struct {
        const char *format, *keeps;
        bool hasCodec, hasEffort;
    } cases[] = {{"Video", "The usual, Quality, Bit Rate, At Most", true, true},
        {"Animated GIF", "The usual, At Most", false, false},
        {"Animated WebP", "The usual, Quality, At Most", false, true},
        {"Pictures, one for each frame", "The usual", false, false}};
    EXPECT_EQ(box(QStringLiteral("Format"))->count(), int(std::size(cases)));
    for (const auto& c : cases) {
        SCOPED_TRACE(c.format);
        box(QStringLiteral("Format"))->setCurrentText(QString::fromLatin1(c.format));
        EXPECT_EQ(
            wordsIn(box(QStringLiteral("Keep"))).join(QStringLiteral(", ")), QString::fromLatin1(c.keeps));
        EXPECT_EQ(box(QStringLiteral("Codec"))->isEnabled(), c.hasCodec);
        EXPECT_EQ(box(QStringLiteral("Effort"))->isEnabled(), c.hasEffort);
    }
    box(QStringLiteral("Format"))->setCurrentIndex(0);
    box(QStringLiteral("Codec"))->setCurrentText(QStringLiteral("ProRes 4444"));
    EXPECT_EQ(wordsIn(box(QStringLiteral("Keep"))), QStringList(QStringLiteral("The usual")));
}

TEST_F(ExportSheetOf, EstimatesEveryFormatAndWhatItTakesToFit) {
    openSheet();
    for (const char* format : {"Video", "Animated GIF", "Animated WebP", "Pictures, one for each frame"}) {
        SCOPED_TRACE(format);
        box(QStringLiteral("Format"))->setCurrentText(QString::fromLatin1(format));
        EXPECT_TRUE(until([&] { return estimate().startsWith(QStringLiteral("About ")); }))
            << estimate().toStdString();
    }
    box(QStringLiteral("Format"))->setCurrentText(QStringLiteral("Animated WebP"));
    box(QStringLiteral("Keep"))->setCurrentText(QStringLiteral("At Most"));
    EXPECT_TRUE(until([&] { return estimate().contains(QStringLiteral("frames a second")); }))
        << estimate().toStdString();
    box(QStringLiteral("Format"))->setCurrentIndex(0);
    EXPECT_EQ(box(QStringLiteral("Keep"))->currentText(), QStringLiteral("At Most"))
        << "it stays where it may";
    const auto isAsUsual = [&] {
        return estimate().startsWith(QStringLiteral("About ")) &&
               !estimate().contains(QStringLiteral("frames a second"));
    };
    EXPECT_TRUE(until(isAsUsual)) << estimate().toStdString();
    coverWithNoise();
    for (auto* field : sheet->findChildren<QDoubleSpinBox*>())
        if (field->accessibleName() == QStringLiteral("At Most")) field->setValue(0.1);
    EXPECT_EQ(state().exportMostBytes(), 10'000'000);
    EXPECT_TRUE(until([&] { return state().exportMostBytes() == 100'000; }));
    EXPECT_TRUE(until([&] { return estimate().startsWith(QStringLiteral("At most 100")); }))
        << estimate().toStdString();
}

// What is clear is so in the film, as its decoder reads it.
TEST_F(ExportSheetOf, WritesAFilmThatKeepsWhatIsClear) {
    openSheet();
    studio->model.update("Clear", [](EditState& changed) {
        changed.spec.background = RGBAColor{0, 0, 0, 0};
    });
    box(QStringLiteral("Codec"))->setCurrentText(QStringLiteral("VP9 with alpha"));
    EXPECT_EQ(wordsIn(box(QStringLiteral("File"))), QStringList(QStringLiteral("WebM")));
    EXPECT_TRUE(until([&] { return estimate().startsWith(QStringLiteral("About ")); }))
        << estimate().toStdString();
    const std::filesystem::path film = std::filesystem::path(home_.path().toStdString()) / "clear.webm";
    exportTo(film);
    ASSERT_TRUE(until([&] { return !state().isExporting() && std::filesystem::exists(film); }));
    const auto frames = media::VideoFile(film).framesFrom(0, 10, media::Pace::onDemand);
    auto frame = frames->next();
    ASSERT_TRUE(frame);
    imaging::Evaluator evaluator;
    const imaging::Bitmap drawn = evaluator.draw(frame->image(), {0, 0, 400, 400});
    const auto alphaAt = [&](int x, int y) { return int(drawn.view().row(y)[std::ptrdiff_t(x) * 4 + 3]); };
    EXPECT_GT(alphaAt(200, 200), 250);
    EXPECT_LT(alphaAt(20, 20), 5);
}

TEST_F(ExportSheetOf, WritesPicturesIntoAFolderOfTheName) {
    openSheet();
    box(QStringLiteral("Format"))->setCurrentText(QStringLiteral("Pictures, one for each frame"));
    const std::filesystem::path folder = std::filesystem::path(home_.path().toStdString()) / "shots";
    exportTo(folder);
    ASSERT_TRUE(
        until([&] { return !state().isExporting() && std::filesystem::exists(folder / "00120.png"); }));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 120) << "two seconds of 60";
    const QImage picture(QString::fromStdString((folder / "00030.png").string()));
    EXPECT_EQ(picture.size(), QSize(400, 400));
    EXPECT_EQ(QColor(picture.pixel(200, 200)), QColor(Qt::white));
}

}   // namespace
}   // namespace tavix::editor
