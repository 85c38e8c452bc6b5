#include <iostream>
#include <string_view>

#include "demo/mdb/Database.h"
#include "demo/mdb/DefinitionTables.h"
#include "platform/RuntimeError.h"

/// mkmdb OUT.mdb: writes the definition database of the demonstration; mkmdb --start OUT.mdb: the one that a
/// fresh installation brings.
int main(int argc, char** argv) {
    const bool start = argc == 3 && std::string_view(argv[1]) == "--start";
    if (argc != 2 && !start) {
        std::cerr << "Aufruf: mkmdb [--start] ZIEL.mdb\n";
        return 2;
    }
    const char* target = argv[argc - 1];
    try {
        demo::mdb::writeDatabase(target, start ? demo::mdb::startTables() : demo::mdb::sampleTables());
    } catch (const blattwart::RuntimeError&) {
        std::cerr << "mkmdb: " << target << " kann nicht geschrieben werden.\n";
        return 1;
    }
    return 0;
}
