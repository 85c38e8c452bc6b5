#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "planlist/PdfNames.h"
#include "planlist/PlanExport.h"
#include "planlist/PlanFilter.h"
#include "planlist/RenamePattern.h"
#include "PlanWorld.h"
#include "support/ToldBy.h"

namespace blattwart::test {

namespace {

/// What another program makes of a CSV file: each cell in brackets, a line for each line.
std::string readByPython(const std::string& csv) {
    const auto file =
        std::filesystem::temp_directory_path() / ("planlist-" + std::to_string(getpid()) + ".csv");
    std::ofstream(file, std::ios::binary) << csv;
    const std::string command =
        "python3 -c 'import csv,sys\n"
        "for line in "
        "csv.reader(open(sys.argv[1],encoding=\"utf-8-sig\",newline=\"\"),delimiter=\";\",strict=True):\n"
        "  sys.stdout.buffer.write((\"\".join(\"[\"+c+\"]\" for c in line)+\"\\n\").encode())' '" +
        file.string() + "'";
    std::string text = toldBy(command);
    std::filesystem::remove(file);
    return text;
}

TEST(ExportTest, AnotherProgramReadsWhatTheListShows) {
    const GermanLocale locale;
    ListView list(locale);
    for (const wchar_t* header : {L"Layout", L"Zeichnung", L"Nr."}) list.addColumn(header, 100);
    list.setColumnPositions({1, 0, 2});
    const auto add = [&](const std::wstring& key, const std::wstring& name, const std::wstring& drawing) {
        ListItem& item = list.add(key, name);
        item.setColumn(2, drawing);
        item.setColumn(3, key);
    };
    add(L"01", L"=1+1", L"ä;\"b\"");
    add(L"1-2", L"+1.OG", L" Blank ");
    add(L"-3,5", L"-A1", L"a\tb\r\nc");
    add(L"4", L"+1*(A1)", L"\U0001F3E0 <b>&");
    add(L"5", L"-2+x|y", L"@x");
    add(L"6", L"", L"- 2");
    const PlanTable table = planTable(list);
    const std::string csv = csvText(table);
    EXPECT_EQ(csv.substr(0, 28), "\xEF\xBB\xBFZeichnung;Layout;Nr.\r\n\"\xC3\xA4");
    EXPECT_EQ(readByPython(csv),
              "[Zeichnung][Layout][Nr.]\n"
              "[ä;\"b\"]['=1+1][01]\n"
              "[ Blank ][+1.OG][1-2]\n"
              "[a b  c]['-A1][-3,5]\n"
              "[🏠 <b>&]['+1*(A1)][4]\n"
              "['@x]['-2+x|y][5]\n"
              "[- 2][][6]\n");
    list.setSelected(list.row(1), true);
    EXPECT_EQ(clipboardText(planTable(list)), L"Zeichnung\tLayout\tNr.\r\n Blank \t+1.OG\t1-2\r\n");

    const std::string html = clipboardHtml(table);
    const auto offset = [&](const std::string& name) {
        return static_cast<std::size_t>(std::stoi(html.substr(html.find(name + ":") + name.size() + 1)));
    };
    EXPECT_EQ(html.substr(offset("StartHTML"), 6), "<html>");
    EXPECT_EQ(offset("EndHTML"), html.size());
    const std::size_t start = offset("StartFragment");
    const std::string fragment = html.substr(start, offset("EndFragment") - start);
    EXPECT_TRUE(fragment.starts_with("<table>") && fragment.ends_with("</table>"));
    EXPECT_NE(fragment.find(">🏠 &lt;b&gt;&amp;</td>"), std::string::npos);
    EXPECT_NE(fragment.find(">01</td>"), std::string::npos);
}

TEST(FilterTest, WordsMayStandInAnyCellAndOrder) {
    const GermanLocale locale;
    const Names cells{L"Straße Büro", L"A1 Haus.dwg", L"geändert"};
    const auto accepts = [&](const wchar_t* text) { return PlanFilter(text, locale).accepts(cells); };
    for (const wchar_t* text :
         {L"", L"  ", L"büro a1", L"A1  BÜRO", L"strasse", L"STRASSE ändert", L"haus.dwg g"})
        EXPECT_TRUE(accepts(text)) << testing::PrintToString(std::wstring(text));
    for (const wchar_t* text : {L"buro", L"BüroA1", L"büro a2", L"geandert"})
        EXPECT_FALSE(accepts(text)) << testing::PrintToString(std::wstring(text));
}

class NamesTest : public testing::Test, public PlanWorld {
  protected:
    /// Row numbers in the base order.
    std::vector<int> numbers() {
        std::vector<int> all;
        for (const PlanDrawing& drawing : plan.drawings())
            for (const PlanRow& row : drawing.rows) all.push_back(row.number);
        return all;
    }
    /// "new name" or "new name: note" for every row, or for the rows with these indices.
    Names preview(const RenamePattern& pattern, const std::vector<std::size_t>& rows = {}) {
        std::vector<int> chosen;
        chosen.reserve(rows.size());
        for (const std::size_t i : rows) chosen.push_back(numbers()[i]);
        if (rows.empty()) chosen = numbers();
        last = previewPattern(plan, chosen, pattern, world.locale);
        Names texts;
        for (const RenamePreviewRow& row : last.rows)
            texts.push_back(row.newName +
                            (row.note.empty() ? L"" : (row.conflict ? L"! " : L": ") + row.note));
        return texts;
    }
    static RenamePattern text(const std::wstring& pattern) {
        RenamePattern made;
        made.text = pattern;
        return made;
    }

    RenamePreview last;
};

TEST_F(NamesTest, PatternsCountSearchAndTellConflicts) {
    open(L"C:\\P", L"EG.Haus.dwg", {L"Plan a", L"Plan b", L"Schnitt"});
    open(L"C:\\P", L"OG.dwg", {L"Plan a"})->setReadOnly();
    read();
    EXPECT_EQ(preview({}), (Names{L"Plan a: unverändert", L"Plan b: unverändert", L"Schnitt: unverändert",
                                  L"Plan a: unverändert"}));
    EXPECT_FALSE(last.possible());
    RenamePattern pattern = text(L"<zeichnung>-<Nr> <Name>");
    pattern.find = L"PLAN ";
    pattern.replacement = L"<Nr>";
    pattern.first = L"9";
    pattern.step = L"2";
    pattern.digits = L"3";
    const std::wstring hint = L": schreibgeschützt, nicht speicherbar";
    EXPECT_EQ(preview(pattern), (Names{L"EG.Haus-009 <Nr>a! unzulässiges Zeichen: <",
                                       L"EG.Haus-011 <Nr>b! unzulässiges Zeichen: <", L"EG.Haus-013 Schnitt",
                                       L"OG-009 <Nr>a! unzulässiges Zeichen: <"}));
    EXPECT_EQ(last.statusText(), L"4 werden umbenannt, 3 Konflikte");
    pattern.replacement = L"";
    pattern.restartInEachDrawing = false;
    EXPECT_EQ(preview(pattern),
              (Names{L"EG.Haus-009 a", L"EG.Haus-011 b", L"EG.Haus-013 Schnitt", L"OG-015 a" + hint}));
    EXPECT_TRUE(last.possible());
    EXPECT_EQ(preview(pattern, {3}), (Names{L"OG-009 a" + hint}));
    EXPECT_EQ(last.statusText(), L"1 wird umbenannt");

    for (const wchar_t* wrong : {L"", L"-1", L"1000000", L"1,5", L"99999999999"}) {
        pattern.first = wrong;
        EXPECT_EQ(preview(pattern, {0}), (Names{L"Plan a! Nummer ungültig"}));
    }
    pattern.text = L"ohne Nummer";
    EXPECT_EQ(preview(pattern, {0}), Names{L"ohne Nummer"});
    EXPECT_EQ(preview(text(L"x"), {0, 1, 3}),
              (Names{L"x! doppelt in der Vorschau", L"x! doppelt in der Vorschau", L"x" + hint}));
    EXPECT_EQ(preview(text(L"<Nam> x"), {0}), Names{L"Plan a! unbekannter Platzhalter"});
}

TEST_F(NamesTest, ATypedNameIsCheckedAgainstTheDrawing) {
    open(L"C:\\P", L"A.dwg", {L"Plan a", L"Plan b"});
    read();
    const auto note = [&](const std::wstring& name) {
        return previewName(plan, numbers()[0], name, world.locale).rows.front().note;
    };
    EXPECT_EQ(note(L"PLAN A"), L"");
    EXPECT_EQ(note(L""), L"leer");
    EXPECT_EQ(note(L" x"), L"beginnt oder endet mit einem Leerzeichen");
    EXPECT_EQ(note(L"a\tb"), L"unzulässiges Steuerzeichen");
    for (const wchar_t c : std::wstring(L"<>/\\\":;?*|,=`'"))
        EXPECT_EQ(note(std::wstring(L"a") + c), std::wstring(L"unzulässiges Zeichen: ") + c);
    EXPECT_EQ(note(std::wstring(255, L'x')), L"");
    EXPECT_EQ(note(std::wstring(256, L'x')), L"länger als 255 Zeichen");
    EXPECT_EQ(note(L"MODELL"), L"„MODELL“ ist der Modellbereich");
    EXPECT_EQ(note(L"plan B"), L"vergeben an Layout Nr. 2");
}

TEST_F(NamesTest, PdfFilesHaveNamesOfTheirOwnThatWindowsTakes) {
    open(L"C:\\P", L"A.dwg", {L"con", L"a . ", L"Plan 1", L"x"});
    open(L"D:\\P", L"A.dwg", {L"PLAN 1"});
    host().newDocument();
    read();
    PlanDrawing& first = plan.drawings().front();
    plan.rename(first, first.rows[3], L"x/y:\"z");
    const auto names = [&](const std::wstring& folder, std::wstring_view pattern) {
        Names texts;
        for (const PdfName& name : pdfNames(plan, numbers(), folder, pattern, world.locale))
            texts.push_back(name.file.empty() ? L"! " + name.conflict : name.file);
        return texts;
    };
    EXPECT_EQ(names(L"", L"<Layout>"),
              (Names{L"C:\\P\\_con.pdf", L"C:\\P\\a.pdf", L"C:\\P\\Plan 1.pdf", L"C:\\P\\x_y__z.pdf",
                     L"D:\\P\\PLAN 1.pdf", L"! Bitte Ordner wählen"}));
    EXPECT_EQ(names(L"E:\\", L"<Layout>")[2], L"! Dateiname doppelt");
    EXPECT_EQ(names(L"E:\\", L"<Layout>")[4], L"! Dateiname doppelt");
    EXPECT_EQ(names(L"E:\\", L"<Layout>")[5], L"E:\\Layout1.pdf");
    EXPECT_EQ(names(L"\\\\Server\\P", L"<Layout>")[1], L"\\\\Server\\P\\a.pdf");
    for (const wchar_t* folder : {L"..", L"\\Temp", L"E:x", L"x"})
        EXPECT_EQ(names(folder, L"<Layout>")[1], L"! Der Ordner ist kein vollständiger Pfad.");
    EXPECT_EQ(names(L"E:", L"<Zeichnung>-<nr>")[3], L"E:\\A-4.pdf");
    EXPECT_EQ(names(L"E:", L"Com1 .<Nr>")[3], L"E:\\_Com1 .4.pdf");
    EXPECT_EQ(names(L"E:", L"<Blatt>")[0], L"! unbekannter Platzhalter");
    EXPECT_EQ(names(L"E:", L"a/<Nr>")[0], L"! unzulässiges Zeichen im Dateinamen");
    EXPECT_EQ(names(L"E:", L". ")[0], L"! Dateiname leer");
    const std::wstring longest(250, L'x');
    EXPECT_EQ(names(L"E:", longest + L"<Nr>")[3], L"E:\\" + longest + L"4.pdf");
    EXPECT_EQ(names(L"E:", longest + L"x<Nr>")[0], L"! Pfad zu lang");
    EXPECT_EQ(names(L"E:\\Ordner", longest + L"<Nr>")[0], L"! Pfad zu lang");
}

}  // namespace

}  // namespace blattwart::test
