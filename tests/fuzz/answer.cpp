#include "content/http_reader.h"
#include "content/json_handler.h"
#include "content/openai_answer.h"
#include "content/secret.h"
#include "tests/fuzz/target.h"

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 mostBytes = 20'000;

/// What comes of the bytes when they arrive in pieces of this size.
Result<HttpAnswer> received(QByteArrayView bytes, qsizetype piece)
{
    HttpReader reader(mostBytes);
    for (; !bytes.isEmpty() && !reader.isComplete(); bytes = bytes.sliced(std::min(piece, bytes.size()))) {
        if (const Result<> added = reader.add(bytes.first(std::min(piece, bytes.size()))); !added)
            return std::unexpected(added.error());
    }
    if (const Result<> closed = reader.close(); !closed)
        return std::unexpected(closed.error());
    return reader.takeAnswer();
}

/// Takes any JSON.
class Nothing final : public JsonHandler
{
public:
    Result<> scalar(JsonKind, const std::string &) override { return {}; }
    Result<> begin(JsonKind) override { return {}; }
    Result<> end(JsonKind) override { return {}; }
    Result<> key(const std::string &) override { return {}; }
};

void checkVariations(const std::expected<QStringList, OpenAIFailure> &variations)
{
    if (!variations) {
        expect(!explain(variations.error()).isEmpty(), "a failure is explained");
        expect(describe(variations.error()).size() < 70'000, "a failure is bounded");
        return;
    }
    for (const QString &variation : *variations) {
        Nothing handler;
        expect(variation.startsWith(u'{') && readJson(variation.toUtf8(), handler), "variations are objects");
    }
}

} // namespace

/// The first byte is the size of the pieces in which an answer comes. What is no HTTP is taken as the body of
/// an answer and as what a model wrote.
void mosslantern::tryBytes(QByteArrayView bytes)
{
    if (bytes.isEmpty())
        return;
    const qsizetype piece = static_cast<unsigned char>(bytes.front()) + 1;
    const QByteArrayView rest = bytes.sliced(1);
    const QString key = u"sk-0123456789\"/é"_s;

    Result<HttpAnswer> answer = received(rest, rest.size() + 1);
    const Result<HttpAnswer> inPieces = received(rest, piece);
    expect(answer.has_value() == inPieces.has_value(), "pieces make no difference");
    if (answer) {
        expect(answer->status == inPieces->status && answer->body == inPieces->body &&
                   answer->location == inPieces->location,
               "pieces change nothing");
        expect(answer->body.size() <= (1 << 20), "a body is bounded");
        if (answer->status == 0)
            answer = HttpAnswer{.status = 200, .body = rest.toByteArray()};
        checkVariations(readVariations(*answer, key));
    }
    const QString text = QString::fromUtf8(rest);
    checkVariations(readVariationList(text));
    expect(!withoutSecret(text, key).contains(key), "the key is masked");
}
