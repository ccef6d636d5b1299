#include "data/label_names.h"

#include "data/whole_file.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tambrix;

namespace {

QString faultOf(const QByteArray& text)
{
    const auto read = readLabelNamesCsv("TAMBRIX label names,1\r\nLabel,Name\r\n" + text);
    const auto* fault = std::get_if<TextFault>(&read);
    return fault != nullptr ? fault->sentence() : QString();
}

} // namespace

TEST(LabelNames, ComeBackFromTheFileAsTheyWere)
{
    const QTemporaryDir folder;
    const QString setup = folder.filePath("press.3.sdt");
    const QString file = folder.filePath("press.3.labels.csv");
    LabelNames names;
    int label = 0;
    for (const char* hostile : {"=1+1", "'=1+1", "a \"b\", c", "\"", "@x", "-", "Bi\u00e8re",
                                "tab\there", "line\r\nbreak", "\u0001\ufffd!"})
        names.set(label++, hostile);
    names.set(99, QString(1000, u'x'));
    EXPECT_EQ(names.of(8), "line break");
    EXPECT_EQ(names.of(99).size(), LabelNames::kLongest);
    EXPECT_FALSE(saveLabelNames(setup, names));
    EXPECT_FALSE(readWholeFile(file, 10'000)->contains(",=")) << "a spreadsheet would reckon";
    const LoadedNames loaded = loadLabelNames(setup);
    EXPECT_TRUE(loaded.fault.isEmpty()) << loaded.fault.toStdString();
    EXPECT_EQ(loaded.names, names);

    EXPECT_FALSE(saveLabelNames(setup, {}));
    EXPECT_FALSE(QFileInfo::exists(file)) << "names of before must not come back";
    EXPECT_TRUE(loadLabelNames(setup).fault.isEmpty());
}

TEST(LabelNames, RefuseAStrangeFileAndKeepIt)
{
    const std::pair<QByteArray, const char*> cases[] = {
        {"6,a\r\n100,b", "Line 4, column 1: no label has this number."},
        {"6,a\r\n6,b", "Line 4, column 1: label 6 has two names."},
        {"6;a", "Line 3, column 1: a label's number and its name are expected."},
        {"6,\"a", "Line 3, column 3: a quote is opened and not closed."},
        {"6,\xff", "Line 3, column 3: characters that are not UTF-8."},
        {QByteArray(60'000, '\n'), "Line 103, column 1: more lines than there can be."},
        {QByteArray(1'000'000, '\n'), "Line 1, column 1: far too long for a list of names."},
    };
    for (const auto& [text, fault] : cases)
        EXPECT_EQ(faultOf(text), fault);
    EXPECT_TRUE(std::holds_alternative<TextFault>(readLabelNamesCsv("")));

    const QTemporaryDir folder;
    const QString setup = folder.filePath("press.sdt");
    LabelNames names;
    names.set(6, "Beer gold");
    for (const char* strange : {"first list", "second list"}) {
        ASSERT_FALSE(writeWholeFile(labelNamesFile(setup), strange));
        EXPECT_FALSE(loadLabelNames(setup).fault.isEmpty());
        EXPECT_FALSE(saveLabelNames(setup, names));
        EXPECT_EQ(loadLabelNames(setup).names, names);
    }
    EXPECT_EQ(readWholeFile(labelNamesFile(setup) + ".old", 100), "first list");
    EXPECT_EQ(readWholeFile(labelNamesFile(setup) + ".old2", 100), "second list");
}
