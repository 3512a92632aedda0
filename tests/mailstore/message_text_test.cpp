// What the window shows of an opened message.

#include "mailstore/html_text.h"
#include "tests/mailstore/mail_fixture.h"

namespace pelk {
namespace {

class MessageTextTest : public MailTest {
 protected:
    MessageText read(const std::string& content, const char* name = "letter.eml") {
        files.write(name, content);
        return dynamic_cast<StoredFolder&>(*openFolder(name)).read(1);
    }
    std::string textOf(const std::string& content) {
        const MessageText found = read("From: a@x\n" + content);
        EXPECT_EQ(found.note.empty(), !found.text.empty());
        return found.text;
    }
};

TEST_F(MessageTextTest, showsFieldsAndTextOfEachLayout) {
    using Fields = std::vector<std::pair<std::string, std::string>>;
    const MessageText found = read(
        "To: =?UTF-8?Q?J=C3=BCrgen?= <j@x>\nX-Other: x\nFrom: a@x\nSubject: S\n\nHi\x07 you\r\n");
    EXPECT_EQ(found.fields, (Fields{{"From", "a@x"}, {"To", "Jürgen <j@x>"}, {"Subject", "S"}}));
    EXPECT_EQ(found.text, "Hi you\n");
    EXPECT_EQ(found.note, "");
    EXPECT_EQ(read("From - Tue Jan  2 03:04:05 2001\n" + message("one") + "\n", "box").text,
              "Text\n\n");
    const std::string letter = message("two");
    EXPECT_EQ(read(std::to_string(letter.size()) + "\n" + letter, "1.emlx").text, "Text\n");
}

TEST_F(MessageTextTest, takesTheFirstPlainTextElseHtml) {
    const std::string mixed = "Content-Type: multipart/mixed; boundary=b\n\npreamble\n";
    const std::string html = "--b\nContent-Type: text/html\n\n<p>rich</p>\n";
    const std::string attached =
        "--b\nContent-Type: text/plain\nContent-Disposition: attachment\n\nfile\n";
    EXPECT_EQ(textOf(mixed + attached + html + "--b\n\nplain\n--b\n\nlater\n--b--\n"), "plain\n");
    EXPECT_EQ(textOf(mixed + html + attached + "--b\n\n \n--b--\n"), "rich\n\n");
    EXPECT_EQ(textOf(mixed + attached + "--b--\n"), "");
    EXPECT_EQ(textOf("Content-Type: image/png\n\nx\n"), "");
    EXPECT_EQ(textOf("Content-Type: text/plain; charset=koi8-r\n"
                     "Content-Transfer-Encoding: base64\n\n8NLJ18XU\n"),
              "Привет");
    EXPECT_EQ(textOf("Content-Type: text/plain; charset=none-such\n\n\xE9\n"), "é\n");
    const MessageText cut = read("From: a@x\n\n" + std::string(400'000, 'x') + "\nend\n");
    EXPECT_LT(cut.text.size(), 400'000U);
    EXPECT_EQ(cut.note, "The text goes on. Only its beginning is shown.");
}

TEST_F(MessageTextTest, turnsHtmlIntoPlainText) {
    EXPECT_EQ(textOfHtml("<html><head><title>T</title></head><STYLE>p{}</STYLE><!-- <p>no -->"
                         "<script>if (a<b) x();</script><p>A &amp; b&#233;&#x21;\n &none; <b>c</b>"
                         "<br>d<ul><li>e<li>f</ul>1 < 2<img src=http://x/>"),
              "A & bé! &none; c\nd\n- e\n- f\n1 < 2");
    EXPECT_EQ(textOfHtml("a<!-- never"), "a");
    EXPECT_EQ(textOfHtml("&#xD800;&#0;"), "&#xD800;&#0;");
    for (const char* const part : {"<", "<!--", "<script>", "</", "&#", "<p>", "&amp;"}) {
        std::string many;
        while (many.size() < 200'000)
            many += part;
        textOfHtml(many);
    }
}

}  // namespace
}  // namespace pelk
