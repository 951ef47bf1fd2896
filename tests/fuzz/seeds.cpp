#include "content/slide_documents.h"
#include "model/content_template.h"
#include "tests/content/test_server.h"
#include "tests/model/test_library.h"
#include "tests/render/picture_samples.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtGui/QColorSpace>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

/// The folder of one target's seeds.
class Seeds
{
public:
    explicit Seeds(const QString &folder)
        : m_folder(folder)
    {
        QDir(folder).removeRecursively();
        QDir().mkpath(folder);
    }

    void add(const QByteArray &bytes)
    {
        writeFile(m_folder + u'/' + QString::number(m_count++).rightJustified(2, u'0'), bytes);
    }

private:
    QString m_folder;
    int m_count = 0;
};

QByteArray utf16(QStringView text)
{
    return '\xFF' + QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
}

void makeContents(Seeds seeds)
{
    for (const QStringView document : {defaultSlideContent, exampleSlideContent, slideContentPlaceholder})
        seeds.add(document.toUtf8());
    for (const char *text :
         {"Hook\n\n  Payoff  \r\nlast", R"({"slides":[{"main":"A"},{"main":"B","subtitle":null}]})",
          R"({"slides":[{"main":"é\n\ud83d\ude00","x":[1,-0,1.5e3,true]}],"slides":[]})",
          "{\"slides\":[{\"main\":\"a\nb\\\\\"c\"},]}", "[[],{\"a\":{}},18446744073709551616]"})
        seeds.add(text);
    seeds.add(utf16(u"{\"slides\":[{\"main\":\"\xD800\"}]}\x2028\x0085"));
}

void makeAnswers(Seeds seeds)
{
    const auto inPieces = [&seeds](const QByteArray &answer) { seeds.add(char(7) + answer); };
    const QByteArray whole = chatAnswer(R"([{"slides":[{"main":"A","subtitle":"é"}]},{"a":1}])");
    const QByteArray body = whole.sliced(whole.indexOf("\r\n\r\n") + 4);
    inPieces(whole);
    inPieces(chatAnswer("```json\n[{\"a\":[1.0,null]}]\n```"));
    inPieces(chatAnswer("Sure! Here it is: []"));
    inPieces("HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5;a=b\r\n" +
             body.first(5) + "\r\n" + QByteArray::number(body.size() - 5, 16) + "\r\n" + body.sliced(5) +
             "\r\n0\r\nX: y\r\n\r\n");
    inPieces("HTTP/1.0 200 OK\r\n\r\n" + body);
    inPieces(httpAnswer(R"({"error":{"message":"Wrong key sk-0123456789\"\/\u00e9"}})", "401 Unauthorized"));
    inPieces(httpAnswer("\x1B[31mc2stMDEyMzQ1Njc4OSIvw6k=", "500 Oh"));
    inPieces(httpAnswer({}, "302 Found", "Location: https://example.org/\r\n"));
    inPieces("[{\"slides\":[]}]");
}

void makeFeeds(Seeds seeds)
{
    const auto feed = [&seeds](const QByteArray &items) {
        seeds.add("<?xml version=\"1.0\"?><rss version=\"2.0\" "
                  "xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\"><channel>" +
                  items + "</channel></rss>");
    };
    feed("<item><sparkle:version>1.2b3</sparkle:version><sparkle:shortVersionString>1.2 "
         "beta</sparkle:shortVersionString><sparkle:releaseNotesLink>https://e.org/n</"
         "sparkle:releaseNotesLink>"
         "<description><![CDATA[<h1>New</h1><ul><li>a &amp; b</ul><table><tr><td>c]]></description>"
         "<link>https://e.org/get</link></item>");
    feed("<item><enclosure url='https://e.org/f' sparkle:version='3' sparkle:shortVersionString='3.0' "
         "sparkle:os='linux'/><description><b>x</b>&#233;</description></item>"
         "<item><sparkle:channel>beta</sparkle:channel></item>");
    seeds.add(
        "<!DOCTYPE rss [<!ENTITY a \"b\">]><rss><channel><item><link>&a;</link></item></channel></rss>");
}

void makeTables(Seeds seeds)
{
    const QString table =
        u"main 1,a,Sub_1,image 2,text 2,style,shape,batch,caption\n"
        "Hook,\"x\n\"\"{{a}}\",s,p.png,two,Boxed,4:5,b,#c\n,,,,,,,,\n🎉,}},,,,,,,\nn,,,,,no,,,\n"_s;
    seeds.add(table.toUtf8());
    seeds.add("\xEF\xBB\xBF" + QString(table).replace(u',', u';').replace(u'\n', u"\r\n"_s).toUtf8());
    for (const QString &text : {QChar(0xFEFF) + QString(table).replace(u',', u'\t'), table.left(40)})
        seeds.add(QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2));
    seeds.add("sep=|\rmain|a\r\x80\xE4|\"q\"r\r\r");
    seeds.add("main 1,main 2,main 3,main 4,main 5,main 6\n1,2,3,4,5,6\n,,,,,6\n");
}

void makeLibraries(Seeds seeds)
{
    TestLibrary library;
    library.store();
    library.close();
    seeds.add(readFile(library.storeFile()));
    Collection *const collection = library.addCollection(u"é"_s);
    Asset *const asset = library.addAsset(u"a"_s, collection);
    library.addSlideshow(asset, {u"one"_s, u"two"_s}, u"batch"_s);
    library.addSlideshow(library.addAsset(u"b"_s), {QString()});
    library.store().remove(library.store().all<Asset>().back());
    library.store().insert(std::make_unique<ContentTemplate>(u"name"_s, u"text"_s));
    library.close();
    seeds.add(readFile(library.storeFile()));
}

/// Small pictures of every kind, each into the folder of its format.
void makePictures(const QString &folder)
{
    using namespace samples;
    const QImage image = painting(20, 14);
    const QImage clear = image.convertToFormat(QImage::Format_ARGB32);
    const QImage gray = image.convertToFormat(QImage::Format_Grayscale8);
    const QImage indexed = image.convertToFormat(QImage::Format_Indexed8);
    const QImage deep = image.convertToFormat(QImage::Format_RGBA64);
    QImage colored = image;
    colored.setColorSpace(QColorSpace::DisplayP3);

    Seeds jpegs(folder + u"/jpeg"_s);
    for (const JpegOptions &options : {JpegOptions{.subsamplingAcross = 2, .subsamplingDown = 2},
                                       {.progressive = true},
                                       {.colors = JpegColors::Cmyk},
                                       {.colors = JpegColors::Gray}})
        jpegs.add(jpegWithOrientation(jpeg(image, options), 6));
    jpegs.add(encoded(colored, "jpeg"));
    Seeds pngs(folder + u"/png"_s), webps(folder + u"/webp"_s), tiffs(folder + u"/tiff"_s),
        bmps(folder + u"/bmp"_s), gifs(folder + u"/gif"_s);
    for (const QImage &kind : {image, clear, gray, indexed, deep, colored}) {
        pngs.add(pngWithOrientation(encoded(kind, "png"), 5));
        tiffs.add(encoded(kind, "tiff"));
        bmps.add(encoded(kind, "bmp"));
    }
    for (const int quality : {50, 100}) {
        webps.add(webpWithOrientation(encoded(image, "webp", quality), 3));
        webps.add(encoded(clear, "webp", quality));
    }
    webps.add(encoded(colored, "webp", 80));
    gifs.add(gif());
    gifs.add(gif().insert(25, QByteArray("\x21\xf9\4\5\0\0\1\0", 8)));
    Seeds heics(folder + u"/heic"_s), avifs(folder + u"/avif"_s);
    const QByteArray profile = QColorSpace(QColorSpace::DisplayP3).iccProfile();
    for (const auto &[codec, seeds] :
         {std::pair(heif_compression_HEVC, &heics), std::pair(heif_compression_AV1, &avifs)}) {
        seeds->add(heif(image, {.codec = codec, .orientation = heif_orientation_rotate_90_cw}));
        seeds->add(heif(clear, {.codec = codec, .iccProfile = profile}));
    }
    heics.add(heif(image, {.bits = 10, .primaries = 9, .transfer = 16}));
    heics.add(heifGrid(heif(painting(64, 64)), 2, {128, 128}, {128, 128}));
}

} // namespace

/// Makes, below the given folder, a folder of seeds for each fuzz target.
int main(int count, char **arguments)
{
    const QCoreApplication application(count, arguments);
    if (count != 2)
        return 2;
    const QString folder = QFile::decodeName(arguments[1]);
    makeContents(Seeds(folder + u"/content"_s));
    makeAnswers(Seeds(folder + u"/answer"_s));
    makeFeeds(Seeds(folder + u"/feed"_s));
    makeTables(Seeds(folder + u"/table"_s));
    makeLibraries(Seeds(folder + u"/library"_s));
    makePictures(folder);
    return 0;
}
