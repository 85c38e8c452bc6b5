#include "demo/dxf/Templates.h"

#include <algorithm>
#include <charconv>

namespace demo {

namespace {

/// Groups separated by | or line ends; code and value separated by the first blank, which may lack before an
/// empty value.
Groups parsedGroups(std::string_view lines) {
    Groups groups;
    while (!lines.empty()) {
        const std::string_view line = lines.substr(0, lines.find_first_of("|\n"));
        lines.remove_prefix(line.size() + 1);
        const auto blank = std::min(line.find(' '), line.size());
        Group group;
        std::from_chars(line.data(), line.data() + blank, group.code);
        group.value = line.substr(std::min(blank + 1, line.size()));
        groups.push_back(std::move(group));
    }
    return groups;
}

constexpr std::string_view plotSettings =
    R"(100 AcDbPlotSettings|1 |2 none_device|4 ISO_A4_(210.00_x_297.00_MM)|6 |40 7.5|41 20.0|42 7.5|43 20.0
44 210.0|45 297.0|46 0.0|47 0.0|48 0.0|49 0.0|140 0.0|141 0.0|142 1.0|143 1.0|70 688|72 1|73 0|74 5
7 |75 16|147 1.0|148 0.0|149 0.0
)";

constexpr std::string_view layoutGeometry =
    R"(10 0.0|20 0.0|11 210.0|21 297.0|12 0.0|22 0.0|32 0.0|14 1.0E+20|24 1.0E+20|34 1.0E+20|15 -1.0E+20
25 -1.0E+20|35 -1.0E+20|146 0.0|13 0.0|23 0.0|33 0.0|16 1.0|26 0.0|36 0.0|17 0.0|27 1.0|37 0.0|76 0
)";

constexpr std::string_view viewportView =
    R"(13 0.0|23 0.0|14 10.0|24 10.0|15 10.0|25 10.0|16 0.0|26 0.0|36 1.0|17 0.0|27 0.0|37 0.0|42 50.0
43 0.0|44 0.0
)";

constexpr std::string_view viewportEnd =
    R"(50 0.0|51 0.0|72 1000|90 819232|1 |281 0|71 1|74 0|110 0.0|120 0.0|130 0.0|111 1.0|121 0.0|131 0.0
112 0.0|122 1.0|132 0.0|79 0|146 0.0
)";

constexpr std::string_view headerAndTables =
    R"(0 SECTION|2 HEADER|9 $ACADVER|1 AC1024|9 $DWGCODEPAGE|3 ANSI_1252|9 $HANDSEED|5 40|9 $TILEMODE|70 1
9 $INSUNITS|70 4|9 $MEASUREMENT|70 1
0 ENDSEC
0 SECTION|2 CLASSES
0 ENDSEC
0 SECTION|2 TABLES
0 TABLE|2 VPORT|5 8|330 0|100 AcDbSymbolTable|70 0
0 ENDTAB
0 TABLE|2 LTYPE|5 5|330 0|100 AcDbSymbolTable|70 3
0 LTYPE|5 14|330 5|100 AcDbSymbolTableRecord|100 AcDbLinetypeTableRecord|2 ByBlock|70 0|3 |72 65
73 0|40 0.0
0 LTYPE|5 15|330 5|100 AcDbSymbolTableRecord|100 AcDbLinetypeTableRecord|2 ByLayer|70 0|3 |72 65
73 0|40 0.0
0 LTYPE|5 16|330 5|100 AcDbSymbolTableRecord|100 AcDbLinetypeTableRecord|2 Continuous|70 0
3 Solid line|72 65|73 0|40 0.0
0 ENDTAB
0 TABLE|2 LAYER|5 2|330 0|100 AcDbSymbolTable|70 1
0 LAYER|5 10|330 2|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 0|70 0|62 7|6 Continuous
370 -3|390 F
0 ENDTAB
0 TABLE|2 STYLE|5 3|330 0|100 AcDbSymbolTable|70 1
0 STYLE|5 11|330 3|100 AcDbSymbolTableRecord|100 AcDbTextStyleTableRecord|2 Standard|70 0|40 0.0
41 1.0|50 0.0|71 0|42 2.5|3 txt|4
0 ENDTAB
0 TABLE|2 VIEW|5 6|330 0|100 AcDbSymbolTable|70 0
0 ENDTAB
0 TABLE|2 UCS|5 7|330 0|100 AcDbSymbolTable|70 0
0 ENDTAB
0 TABLE|2 APPID|5 9|330 0|100 AcDbSymbolTable|70 1
0 APPID|5 12|330 9|100 AcDbSymbolTableRecord|100 AcDbRegAppTableRecord|2 ACAD|70 0
0 ENDTAB
0 TABLE|2 DIMSTYLE|5 A|330 0|100 AcDbSymbolTable|70 1|100 AcDbDimStyleTable|71 1|340 27
0 DIMSTYLE|105 27|330 A|100 AcDbSymbolTableRecord|100 AcDbDimStyleTableRecord|2 Standard|70 0|340 11
0 ENDTAB
0 TABLE|2 BLOCK_RECORD|5 1|330 0|100 AcDbSymbolTable|70 2
0 BLOCK_RECORD|5 1F|330 1|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 *Model_Space|340 22
0 BLOCK_RECORD|5 1B|330 1|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 *Paper_Space|340 1E
0 ENDTAB
0 ENDSEC
)";

constexpr std::string_view blocksAndDictionaries = R"(0 SECTION|2 BLOCKS
0 BLOCK|5 20|330 1F|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 *Model_Space|70 0|10 0.0|20 0.0|30 0.0
3 *Model_Space|1
0 ENDBLK|5 21|330 1F|100 AcDbEntity|8 0|100 AcDbBlockEnd
0 BLOCK|5 1C|330 1B|100 AcDbEntity|67 1|8 0|100 AcDbBlockBegin|2 *Paper_Space|70 0|10 0.0|20 0.0
30 0.0|3 *Paper_Space|1
0 ENDBLK|5 1D|330 1B|100 AcDbEntity|67 1|8 0|100 AcDbBlockEnd
0 ENDSEC
0 SECTION|2 ENTITIES
0 ENDSEC
0 SECTION|2 OBJECTS
0 DICTIONARY|5 C|330 0|100 AcDbDictionary|281 1|3 ACAD_GROUP|350 D|3 ACAD_LAYOUT|350 1A
3 ACAD_PLOTSTYLENAME|350 E
0 DICTIONARY|5 D|330 C|100 AcDbDictionary|281 1
0 DICTIONARY|5 1A|330 C|100 AcDbDictionary|281 1|3 Layout1|350 1E|3 Model|350 22
0 ACDBDICTIONARYWDFLT|5 E|330 C|100 AcDbDictionary|281 1|3 Normal|350 F
100 AcDbDictionaryWithDefault|340 F
0 ACDBPLACEHOLDER|5 F|330 E
)";

std::string fileText(const Groups& groups) {
    std::string text;
    for (const Group& group : groups) text += std::to_string(group.code) + '\n' + group.value + '\n';
    return text;
}

std::string layoutText(std::string_view handles, std::string_view name, std::string_view end) {
    std::string lines(handles);
    lines.append(plotSettings).append("100 AcDbLayout\n").append(name).append(layoutGeometry).append(end);
    return fileText(parsedGroups(lines));
}

}  // namespace

std::string emptyDrawingText() {
    return fileText(parsedGroups(headerAndTables)) + fileText(parsedGroups(blocksAndDictionaries)) +
           layoutText("0 LAYOUT\n5 22\n330 1A\n", "1 Model\n70 1\n71 0\n", "330 1F\n") +
           layoutText("0 LAYOUT\n5 1E\n330 1A\n", "1 Layout1\n70 1\n71 1\n", "330 1B\n") +
           fileText(parsedGroups("0 ENDSEC\n0 EOF\n"));
}

Groups newLayoutGroups() {
    std::string lines(plotSettings);
    lines.append("100 AcDbLayout\n1 \n70 1\n71 0\n").append(layoutGeometry).append("330 0\n");
    return parsedGroups(lines);
}

Groups sheetViewportGroups(double width, double height) {
    Groups groups = parsedGroups("100 AcDbEntity\n67 1\n8 0\n100 AcDbViewport\n");
    const auto append = [&](const Groups& more) { groups.insert(groups.end(), more.begin(), more.end()); };
    append({numberGroup(10, width / 2), numberGroup(20, height / 2), numberGroup(30, 0),
            numberGroup(40, width), numberGroup(41, height), integerGroup(68, 1), integerGroup(69, 1),
            numberGroup(12, width / 2), numberGroup(22, height / 2)});
    append(parsedGroups(viewportView));
    append({numberGroup(45, height)});
    append(parsedGroups(viewportEnd));
    return groups;
}

}  // namespace demo
