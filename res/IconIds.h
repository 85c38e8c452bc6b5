#pragma once

/* Ids of the picture resources; read by the resource compiler too. A strip's id is its base plus the scale:
   0 = 100 %, 1 = 125 %, 2 = 150 %, 3 = 200 %. */
#define IDI_BLATTWART 1
#define IDB_TREE 200
#define IDB_TOOLBAR 210
#define IDB_LIST_SMALL 220
#define IDB_LIST_LARGE 230
