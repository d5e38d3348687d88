#include "platform/store/registry_text.h"

#include <gtest/gtest.h>

#include <string>

namespace velorama {
namespace {

const QByteArray head = "Windows Registry Editor Version 5.00\r\n\r\n";
const QString here = QStringLiteral("SOFTWARE\\Brightquay\\Velorama\\frmCONFIG\\Items");
const QByteArray openKey =
    head + "[HKEY_CURRENT_USER\\SOFTWARE\\Brightquay\\Velorama\\frmCONFIG\\Items]\r\n";

/// Each character as two bytes, the low one first.
QByteArray wide(const QString& text) {
    QByteArray bytes;
    for (const QChar c : text) {
        bytes += static_cast<char>(c.unicode() & 0xFFU);
        bytes += static_cast<char>(c.unicode() >> 8U);
    }
    return bytes;
}

AddressedValue at(const QString& name, ValueType type, const QByteArray& data) {
    return {Hive::CurrentUser, here, name, RegistryValue{type, data}};
}

/// The one value that stands behind an open key; one without type for a text that is refused.
AddressedValue only(const QByteArray& lines) {
    const RegistryText text = readRegistryText(openKey + lines);
    EXPECT_FALSE(text.fault.has_value())
        << text.fault.value_or(RegistryTextFault()).reason.toStdString();
    if (text.edits.size() != 2 && text.edits.size() != 1) {
        return {};
    }
    EXPECT_EQ(text.edits.front().kind, RegistryEdit::Kind::Value);
    return text.edits.front().at;
}

/// "<line>: <reason>", empty for a text that is taken.
std::string fault(const QByteArray& bytes) {
    const RegistryText text = readRegistryText(bytes);
    if (!text.fault) {
        return {};
    }
    EXPECT_TRUE(text.edits.empty());
    return std::to_string(text.fault->line) + ": " + text.fault->reason.toStdString();
}

// As a registry's own tool writes it, with what people put in by hand.
const QString byHand = QStringLiteral(
    "Windows Registry Editor Version 5.00\r\n"
    "\r\n"
    "; my settings\r\n"
    "[HKEY_CURRENT_USER\\SOFTWARE\\Brightquay\\Velorama\\frmCONFIG\\Items]\r\n"
    "\"INTERVAL\"=\"7\"\r\n"
    "\"Files Location\"=\"C:\\\\Fotos \\\"\u00C4gypten\\\"\\\\\"\r\n"
    "@=\"\"\r\n"
    "\"Folder\"=hex(2):25,00,48,00,4f,00,4d,00,45,00,25,00,5c,00,50,00,69,00,63,00,73,\\\r\n"
    "  00,00,00\r\n"
    "\"hwnd\"=dword:0001f00d ; a window\r\n"
    "\"TBAR\"=-\r\n"
    "\r\n"
    "[-HKEY_CURRENT_USER\\SOFTWARE\\Brightquay\\Velorama\\Old [1]]\r\n"
    "\r\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\\u00DCber]\r\n"
    "\"raw\"=hex:00,ff,\\\r\n"
    "\\\r\n"
    "  7F\r\n");

void expectByHand(const QByteArray& bytes) {
    const RegistryText text = readRegistryText(bytes);
    ASSERT_FALSE(text.fault.has_value())
        << text.fault->line << ' ' << text.fault->reason.toStdString();
    ASSERT_EQ(text.edits.size(), 8U);
    EXPECT_EQ(text.edits[0].at, at(QStringLiteral("INTERVAL"), ValueType::Text, "7"));
    EXPECT_EQ(text.edits[1].at, at(QStringLiteral("Files Location"), ValueType::Text,
                                   "C:\\Fotos \"\xC3\x84gypten\"\\"));
    EXPECT_EQ(text.edits[2].at, at({}, ValueType::Text, ""));
    EXPECT_EQ(text.edits[3].at,
              at(QStringLiteral("Folder"), ValueType::ExpandableText, "%HOME%\\Pics"));
    EXPECT_EQ(text.edits[4].at, at(QStringLiteral("hwnd"), ValueType::Number, "126989"));
    EXPECT_EQ(text.edits[5].at,
              (AddressedValue{Hive::CurrentUser, here, QStringLiteral("TBAR"), std::nullopt}));
    EXPECT_EQ(text.edits[6].kind, RegistryEdit::Kind::Key);
    EXPECT_EQ(text.edits[6].at.key, QStringLiteral("SOFTWARE\\Brightquay\\Velorama\\Old [1]"));
    EXPECT_EQ(text.edits[7].at,
              (AddressedValue{Hive::LocalMachine, QStringLiteral("SOFTWARE\\\u00DCber"),
                              QStringLiteral("raw"),
                              RegistryValue{ValueType::Bytes, QByteArray("\0\xFF\x7F", 3)}}));
}

TEST(RegistryText, IsReadInEveryEncoding) {
    expectByHand(byHand.toUtf8());
    expectByHand("\xEF\xBB\xBF" + byHand.toUtf8());
    expectByHand(wide(byHand));
    expectByHand("\xFF\xFE" + wide(byHand));
}

TEST(RegistryText, IsReadWithEveryLineEnd) {
    for (const char* end : {"\n", "\r"}) {
        const QString text = QString(byHand).replace(QLatin1String("\r\n"), QLatin1String(end));
        expectByHand(text.toUtf8());
        expectByHand(wide(text));
    }
}

// Its last letter has a line feed for its high byte.
TEST(RegistryText, CharactersOfTwoBytesAreNoLineEnds) {
    const QString text =
        QString::fromUtf8(openKey) + QStringLiteral("\"\u0A41\u0D0A\"=\"\u410A\u420D\"\r\n");
    const RegistryText read = readRegistryText(wide(text));
    ASSERT_FALSE(read.fault.has_value());
    ASSERT_EQ(read.edits.size(), 1U);
    EXPECT_EQ(read.edits[0].at.name, QStringLiteral("\u0A41\u0D0A"));
    EXPECT_EQ(read.edits[0].at.value->data, QStringLiteral("\u410A\u420D").toUtf8());
}

TEST(RegistryText, LetterCaseBlanksAndCommentsCountForNothing) {
    const QByteArray lines =
        "  ; a comment\r\n\t \"a\" = DWORD:aB\t; b\r\n [hkey_current_user\\X]  \r\n\"b\"=-  \r\n";
    EXPECT_EQ(only(lines), at(QStringLiteral("a"), ValueType::Number, "171"));
}

TEST(RegistryText, TextsAsBytesComeWithTheirZeroOrWithout) {
    EXPECT_EQ(only("\"a\"=hex(1):41,00,00,00"), at(QStringLiteral("a"), ValueType::Text, "A"));
    EXPECT_EQ(only("\"a\"=hex(1):41,00"), at(QStringLiteral("a"), ValueType::Text, "A"));
    EXPECT_EQ(only("\"a\"=hex(1):"), at(QStringLiteral("a"), ValueType::Text, ""));
    EXPECT_EQ(only("\"a\"=hex(2):3c,d8,00,df"),
              at(QStringLiteral("a"), ValueType::ExpandableText, "\xF0\x9F\x8C\x80"));
}

TEST(RegistryText, OtherTypesKeepTheirBytes) {
    EXPECT_EQ(only("\"a\"=hex(4):01,02,00,00"), at(QStringLiteral("a"), ValueType::Number, "513"));
    EXPECT_EQ(only("\"a\"=hex(7):41,00"),
              at(QStringLiteral("a"), static_cast<ValueType>(7), QByteArray("A\0", 2)));
    EXPECT_EQ(only("\"a\"=hex(b):1"),
              at(QStringLiteral("a"), static_cast<ValueType>(11), QByteArray("\1", 1)));
}

struct Refused {
    const char* name;
    QByteArray bytes;
    const char* fault;
};

class RefusedText : public testing::TestWithParam<Refused> {};

TEST_P(RefusedText, NamesItsLine) {
    EXPECT_EQ(fault(GetParam().bytes), GetParam().fault);
}

// A whole value stands before each: nothing of it may be left.
const QByteArray good = openKey + "\"a\"=\"b\"\r\n";

INSTANTIATE_TEST_SUITE_P(
    Faults, RefusedText,
    testing::Values(
        Refused{"Empty", "", "1: the first line is not \"Windows Registry Editor Version 5.00\""},
        Refused{"OldVersion", "REGEDIT4\r\n",
                "1: the first line is not \"Windows Registry Editor Version 5.00\""},
        Refused{"BigEndian",
                "\xFE\xFF\0W"
                "\0i",
                "1: these bytes are no UTF-8 text"},
        Refused{"NoUtf8", good + "\"\xC4\"=\"\"\r\n", "5: these bytes are no UTF-8 text"},
        Refused{"CutUtf8", good + "\"\xC3", "5: these bytes are no UTF-8 text"},
        Refused{"Zero", good + QByteArray("\"\0\"=\"\"", 6), "5: these bytes are no UTF-8 text"},
        Refused{"HalfACharacter", wide(QString::fromUtf8(good)) + ";",
                "5: these bytes are no UTF-16 text"},
        Refused{"HalfAPair", wide(QString::fromUtf8(good)) + QByteArray("\0\xD8", 2),
                "5: these bytes are no UTF-16 text"},
        Refused{"NoKey", head + "\"a\"=\"b\"\r\n", "3: a value stands before the first key"},
        Refused{"OpenKey", good + "[HKEY_CURRENT_USER\\a\r\n",
                "5: the closing bracket of the key is missing"},
        Refused{"OtherRoot", good + "[HKEY_USERS\\a]\r\n", "5: there is no such root of keys"},
        Refused{"NoRoot", good + "[]\r\n", "5: there is no such root of keys"},
        Refused{"EmptySegment", good + "[HKEY_CURRENT_USER\\a\\\\b]\r\n",
                "5: this is no name of a key"},
        Refused{"EmptyKey", good + "[HKEY_CURRENT_USER\\]\r\n", "5: this is no name of a key"},
        Refused{"LongSegment", good + "[HKEY_CURRENT_USER\\" + QByteArray(256, 'a') + "]\r\n",
                "5: this is no name of a key"},
        Refused{"RemovedRoot", good + "[-HKEY_CURRENT_USER]\r\n", "5: this is no name of a key"},
        Refused{"BelowRemoved", good + "[-HKEY_CURRENT_USER\\a]\r\n\"b\"=\"c\"\r\n",
                "6: a value stands below a key that is removed"},
        Refused{"NoName", good + "a=\"b\"\r\n", "5: this is neither a key nor a value"},
        Refused{"EmptyName", good + "\"\"=\"b\"\r\n", "5: this is no name of a value"},
        Refused{"LongName", good + '"' + QByteArray(16384, 'a') + "\"=-\r\n",
                "5: this is no name of a value"},
        Refused{"NoSign", good + "\"b\" \"c\"\r\n", "5: the = behind the name is missing"},
        Refused{"NoData", good + "\"b\"=\r\n", "5: this is no data of a value"},
        Refused{"OpenName", good + "\"b=\r\n", "5: the closing quote is missing"},
        Refused{"OpenText", good + "\"b\"=\"c\\\"\r\n", "5: the closing quote is missing"},
        Refused{"PlainBackslash", good + "\"b\"=\"C:\\Photos\"\r\n",
                "5: a backslash in quotes is to be written twice"},
        Refused{"BackslashLast", good + "\"b\"=\"c\\\r\n",
                "5: a backslash in quotes is to be written twice"},
        Refused{"Behind", good + "\"b\"=\"c\" d\r\n", "5: something stands behind the value"},
        Refused{"LongNumber", good + "\"b\"=dword:123456789\r\n",
                "5: something stands behind the value"},
        Refused{"NoNumber", good + "\"b\"=dword:\r\n", "5: this is no data of a value"},
        Refused{"NoByte", good + "\"b\"=hex:0g\r\n", "5: something stands behind the value"},
        Refused{"LastComma", good + "\"b\"=hex:01,\r\n", "5: this is no data of a value"},
        Refused{"TwoCommas", good + "\"b\"=hex:01,,02\r\n", "5: this is no data of a value"},
        Refused{"OpenType", good + "\"b\"=hex(2:01\r\n", "5: this is no data of a value"},
        Refused{"LongType", good + "\"b\"=hex(80000000):01\r\n", "5: this is no data of a value"},
        Refused{"OddText", good + "\"b\"=hex(1):41\r\n", "5: this is no data of a value"},
        Refused{"HalfAPairOfBytes", good + "\"b\"=hex(2):00,d8\r\n",
                "5: this is no data of a value"},
        Refused{"NothingFollows", good + "\"b\"=hex:01,\\", "5: no line follows the backslash"},
        Refused{"CommentIsNoLine", good + "\"b\"=hex:01,\\\r\n;\r\n",
                "6: this is no data of a value"},
        Refused{"InsideTheLine", good + "\"b\"=hex:01,\\02\r\n",
                "5: no line follows the backslash"}),
    [](const auto& row) { return row.param.name; });

TEST(RegistryText, TheLongestNamesAreTaken) {
    EXPECT_EQ(fault(good + "[HKEY_CURRENT_USER\\" + QByteArray(255, 'a') + "]\r\n"), "");
    EXPECT_EQ(fault(good + '"' + QByteArray(16383, 'a') + "\"=-\r\n"), "");
}

// Two million empty values would fill the memory of a small machine before the file is at its end.
TEST(RegistryText, TooManyValuesAreRefused) {
    const QByteArray one = "@=-\n";
    EXPECT_EQ(fault(head + "[HKEY_CURRENT_USER\\a]\n" + one.repeated(2'000'000)), "");
    EXPECT_EQ(fault(head + "[HKEY_CURRENT_USER\\a]\n" + one.repeated(2'000'001)),
              "2000004: there are too many values");
}

std::vector<AddressedValue> someValues() {
    const QString other = QStringLiteral("software\\Brightquay\\Velorama\\a");
    return {
        at(QStringLiteral("INTERVAL"), ValueType::Text, "4"),
        at(QStringLiteral("b\"\\"), ValueType::Text, "\"\\ \xC3\x84 \xF0\x9F\x8C\x80"),
        at(QStringLiteral("a"), ValueType::Text, "two\r\nlines"),
        at({}, ValueType::Text, ""),
        at(QStringLiteral("c"), ValueType::ExpandableText, "%HOME%\\a folder with a long name"),
        at(QStringLiteral("d"), ValueType::Number, "4294967295"),
        at(QStringLiteral("e"), ValueType::Number, "-1"),
        at(QStringLiteral("f"), ValueType::Bytes, QByteArray("\0\1\xFF", 3)),
        at(QStringLiteral("g"), static_cast<ValueType>(11), QByteArray(60, 'x')),
        {Hive::CurrentUser, other, QStringLiteral("1"), RegistryValue{ValueType::Text, "x"}},
        {Hive::ClassesRoot, QStringLiteral(".vlr"), {}, RegistryValue{ValueType::Text, "VLRFile"}},
        {Hive::LocalMachine, {}, QStringLiteral("z"), RegistryValue{ValueType::Text, "root"}},
    };
}

const QByteArray written =
    "Windows Registry Editor Version 5.00\r\n"
    "\r\n"
    "[HKEY_CLASSES_ROOT\\.vlr]\r\n"
    "@=\"VLRFile\"\r\n"
    "\r\n"
    "[HKEY_CURRENT_USER\\software\\Brightquay\\Velorama\\a]\r\n"
    "\"1\"=\"x\"\r\n"
    "\r\n"
    "[HKEY_CURRENT_USER\\SOFTWARE\\Brightquay\\Velorama\\frmCONFIG\\Items]\r\n"
    "@=\"\"\r\n"
    "\"a\"=hex(1):74,00,77,00,6f,00,0d,00,0a,00,6c,00,69,00,6e,00,65,00,73,00,00,00\r\n"
    "\"b\\\"\\\\\"=\"\\\"\\\\ \xC3\x84 \xF0\x9F\x8C\x80\"\r\n"
    "\"c\"=hex(2):25,00,48,00,4f,00,4d,00,45,00,25,00,5c,00,61,00,20,00,66,00,6f,00,6c,00,64,\\\r\n"
    "  00,65,00,72,00,20,00,77,00,69,00,74,00,68,00,20,00,61,00,20,00,6c,00,6f,00,\\\r\n"
    "  6e,00,67,00,20,00,6e,00,61,00,6d,00,65,00,00,00\r\n"
    "\"d\"=dword:ffffffff\r\n"
    "\"e\"=hex(4):2d,31\r\n"
    "\"f\"=hex:00,01,ff\r\n"
    "\"g\"=hex(b):78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,\\\r\n"
    "  78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,78,\\\r\n"
    "  78,78,78,78,78,78,78,78,78,78\r\n"
    "\"INTERVAL\"=\"4\"\r\n"
    "\r\n"
    "[HKEY_LOCAL_MACHINE]\r\n"
    "\"z\"=\"root\"\r\n"
    "\r\n";

TEST(RegistryText, IsWrittenInOrder) {
    EXPECT_EQ(registryText(someValues(), RegistryEncoding::Utf8).toStdString(),
              written.toStdString());
    const std::vector<AddressedValue> values = someValues();
    const std::vector<AddressedValue> turned(values.rbegin(), values.rend());
    EXPECT_EQ(registryText(turned, RegistryEncoding::Utf8), written);
    EXPECT_EQ(registryText(someValues(), RegistryEncoding::Utf16),
              "\xFF\xFE" + wide(QString::fromUtf8(written)));
}

TEST(RegistryText, OfAnEmptyStoreIsItsHead) {
    EXPECT_EQ(registryText({}, RegistryEncoding::Utf8), head);
}

TEST(RegistryText, WhatIsWrittenIsReadAsItWas) {
    for (const auto encoding : {RegistryEncoding::Utf8, RegistryEncoding::Utf16}) {
        const RegistryText text = readRegistryText(registryText(someValues(), encoding));
        ASSERT_FALSE(text.fault.has_value()) << text.fault->reason.toStdString();
        std::vector<AddressedValue> read;
        for (const RegistryEdit& edit : text.edits) {
            read.push_back(edit.at);
        }
        EXPECT_EQ(read.size(), someValues().size());
        EXPECT_EQ(registryText(read, RegistryEncoding::Utf8), written);
    }
}

TEST(RegistryText, AddressesThatNoLineHoldsAreNamed) {
    std::vector<AddressedValue> values = someValues();
    EXPECT_EQ(unwritableAddress(values), QString());
    values.push_back(at(QStringLiteral("two\nlines"), ValueType::Text, ""));
    EXPECT_EQ(unwritableAddress(values), QStringLiteral("two\nlines"));
    values.back() = {Hive::CurrentUser, QStringLiteral("a\\\\b"), QStringLiteral("c"),
                     RegistryValue{}};
    EXPECT_EQ(unwritableAddress(values), QStringLiteral("a\\\\b"));
}

}  // namespace
}  // namespace velorama
