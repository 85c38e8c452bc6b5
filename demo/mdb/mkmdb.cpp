#include <iostream>

#include "mdb/Database.h"
#include "mdb/DefinitionTables.h"
#include "platform/RuntimeError.h"

/// mkmdb OUT.mdb: writes the definition database of the demonstration.
int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "Aufruf: mkmdb ZIEL.mdb\n";
        return 2;
    }
    try {
        demo::mdb::writeDatabase(argv[1], demo::mdb::sampleTables());
    } catch (const blattwart::RuntimeError&) {
        std::cerr << "mkmdb: " << argv[1] << " kann nicht geschrieben werden.\n";
        return 1;
    }
    return 0;
}
