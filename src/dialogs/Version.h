#pragma once

/* The program's version; read by the resource compiler too. */
#define BLATTWART_VERSION_MAJOR 2
#define BLATTWART_VERSION_MINOR 1
#define BLATTWART_VERSION_REVISION 0
