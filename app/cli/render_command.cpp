#include "app/cli/commands.h"
#include "app/cli/design_options.h"
#include "app/cli/export_options.h"
#include "app/cli/interruption.h"
#include "app/cli/left_out.h"
#include "app/cli/output.h"
#include "app/cli/progress.h"
#include "app/cli/render_targets.h"
#include "model/folder.h"
#include "model/partial_file.h"
#include "render/export/slide_file.h"
#include "render/picture/picture_files.h"
#include "render/picture/picture_geometry.h"

#include <QtCore/QDir>

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr double smallestRatio = 0.01;
constexpr double largestRatio = 100;

/// Whether pictures of this size can be made; also where it does not fit into whole numbers.
bool isDrawable(const Canvas &canvas)
{
    constexpr int bytesPerPixel = 4;
    constexpr qint64 mostBytes = qint64(1) << 30;
    const QSizeF pixels = canvas.size * canvas.pixelRatio;
    return std::max(pixels.width(), pixels.height()) <= longestPictureSide &&
           checkPictureSize(canvas.pixelSize(), bytesPerPixel, mostBytes);
}

/// Whether the value of --out stands for a file and not for a folder.
bool isFile(const QString &out)
{
    return slideFormatOfFile(out) && !QFileInfo(out).isDir();
}

/// The file that each slide goes to.
Result<QStringList> chooseFiles(const PictureFiles &pictures, const QString &out, SlideFormat format)
{
    if (isFile(out)) {
        const QString picture = QFileInfo(pictures.files.first()).canonicalFilePath();
        if (!picture.isEmpty() && picture == QFileInfo(out).canonicalFilePath())
            return fail(u"“%1” is the picture itself, which is never replaced."_s.arg(out));
        return QStringList{out};
    }
    if (const Result<> made = makeFolder(out); !made)
        return std::unexpected(made.error());
    QStringList files;
    for (const RenderTarget &target : renderTargets(pictures.files, out, fileEnding(format))) {
        if (target.isNumbered)
            report(u"“%1” is drawn as “%2”, because another picture has its name."_s.arg(
                pictures.files[files.size()], target.file));
        files.append(target.file);
    }
    return files;
}

/// Draws each picture into its file; `missing` are those that are not among `pictures`. Gives the exit
/// status.
int drawAll(const SlideJob &usual, const QStringList &pictures, const QStringList &files, qsizetype missing)
{
    std::vector<SlideJob> jobs(size_t(pictures.size()), usual);
    for (qsizetype i = 0; i < pictures.size(); ++i)
        jobs[size_t(i)].picturePath = pictures[i];

    const Interruption interruption;
    if (!files.isEmpty())
        removeAbandonedFiles(QFileInfo(files.constFirst()).path());
    QStringList written;
    qsizetype failures = missing;
    {
        Progress progress(u"slides"_s);
        const auto write = [&](size_t index, const EncodedSlide &slide) {
            const auto i = static_cast<qsizetype>(index);
            if (interruption.isRequested() && !slide.isDrawn())
                return false;
            QString problem;
            if (!slide.pictureProblem.isEmpty())
                problem = pictures[i] + u": "_s + slide.pictureProblem;
            else if (const Result<> outcome = writeSlideFile(files[i], slide); !outcome)
                problem = outcome.error().message;
            else
                written.append(files[i]);
            if (!problem.isEmpty()) {
                report(problem);
                ++failures;
            }
            progress.show(i + 1, files.size());
            return !interruption.isRequested();
        };
        SlideRenderer().render(jobs, write);
    }
    for (const QString &file : written)
        writeRow({file});
    if (interruption.isRequested())
        return interruption.exitStatus(failed);
    LeftOut leftOut;
    leftOut.note(failures, pictures.size() + missing, u"pictures were not drawn"_s);
    return leftOut.report();
}

int render(const Arguments &arguments)
{
    OptionReader options(arguments);
    const SlideDesign design = readDesign(options);
    ExportOptions exported = readExportOptions(options);
    Canvas canvas = exported.canvas(design.shape);
    if (const auto size = options.size("size"_L1)) {
        canvas.size = *size;
        if (exported.width)
            canvas.pixelRatio = *exported.width / size->width();
    }
    canvas.pixelRatio =
        options.real("pixel-ratio"_L1, smallestRatio, largestRatio).value_or(canvas.pixelRatio);
    const QString out = options.required("out"_L1);
    if (options.problem())
        return wrongUsage(*options.problem());
    if (!arguments.has("text"_L1))
        return wrongUsage(u"--text is missing");
    if (arguments.has("size"_L1) && arguments.has("shape"_L1))
        return wrongUsage(u"expected either --shape or --size");
    if (arguments.has("for"_L1) && (arguments.has("size"_L1) || arguments.has("pixel-ratio"_L1)))
        return wrongUsage(u"expected either --for or a size in points");
    if (const auto objection = exported.objection(out, design.shape, 1))
        return failedWith(*objection);
    if (arguments.has("width"_L1) && arguments.has("pixel-ratio"_L1))
        return wrongUsage(u"expected either --width or --pixel-ratio");
    if (!isDrawable(canvas))
        return wrongUsage(u"--size, --width and --pixel-ratio: expected fewer pixels");
    if (isFile(out)) {
        const SlideFormat named = *slideFormatOfFile(out);
        if (!arguments.has("format"_L1) && !arguments.has("for"_L1))
            exported.encoding.format = named;
        else if (fileEnding(named) != fileEnding(exported.encoding.format))
            return wrongUsage(u"--out: expected a name that ends with %1, not “%2”"_s.arg(
                fileEnding(exported.encoding.format), out));
    }

    const PictureFiles pictures = pictureFiles(arguments.positionals());
    if (isFile(out) && (arguments.positionals().size() > 1 || pictures.hasFolder))
        return wrongUsage(u"--out: expected a folder for several pictures, not “%1”"_s.arg(out));
    for (const Error &problem : pictures.problems)
        report(problem.message);
    if (pictures.files.isEmpty())
        return failed;
    const Result<QStringList> files = chooseFiles(pictures, out, exported.encoding.format);
    if (!files)
        return failedWith(files.error());
    const SlideValues values{.text = *arguments.value("text"_L1),
                             .subtitle = arguments.value("subtitle"_L1).value_or(QString()),
                             .style = design.style};
    return drawAll(
        {values, canvas, {}, exported.drawnCorners(), exported.encoding, exported.frame(design.shape)},
        pictures.files, *files, pictures.problems.size());
}

std::vector<OptionSpec> renderOptions()
{
    std::vector<OptionSpec> options{
        {"text"_L1, "TEXT"_L1, "the main text"_L1},
        {"subtitle"_L1, "TEXT"_L1, "the subtitle; none by default"_L1},
        {"out"_L1, "FILE|DIR"_L1,
         "the file for one picture (.png, .jpg or .webp), or the folder for several"_L1},
        {"size"_L1, "WxH"_L1, "canvas in points; by default that of the shape"_L1},
        {"pixel-ratio"_L1, "F"_L1, "pixels per point; 2 by default"_L1},
    };
    std::ranges::copy(designOptions(), std::back_inserter(options));
    std::ranges::copy(exportOptions(), std::back_inserter(options));
    return options;
}

} // namespace

std::vector<Command> renderCommands()
{
    return {{
        .name = "render"_L1,
        .usage = "[OPTION...] --text TEXT (--out FILE IMAGE | --out DIR IMAGE...)"_L1,
        .fewestOperands = 1,
        .mostOperands = anyNumber,
        .summary = "draw one text on pictures, without a library"_L1,
        .details =
            "Draws the same text on every picture, or every picture of a folder, and prints the files. "
            "In a folder each is called like its picture. "
            "Files of the same names are replaced, but never one of the pictures. "
            "A picture that cannot be read is reported; the others are drawn."_L1,
        .options = renderOptions(),
        .usesLibrary = false,
        .takesPictures = true,
        .draws = true,
        .run = render,
    }};
}

} // namespace mosslantern
