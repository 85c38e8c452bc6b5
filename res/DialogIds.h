#pragma once

/* Ids of the dialog templates and their controls; read by the resource compiler too. */
#define IDD_KOPIEREN 300
#define IDD_UMBENENNEN 301
#define IDD_INFO 302
#define IDD_WARTEN 303
#define IDD_ERSTELLEN 340

#define IDC_DOKUMENT 1001
#define IDC_QUELLE 1002
#define IDC_LAYOUT 1003
#define IDC_ANZAHL 1004
#define IDC_NEU_L 1005
#define IDC_LABEL_ANZAHL 1006
#define IDC_VERSION 1007
#define IDC_BUILD 1008
#define IDC_SYSINFO 1009
#define IDC_ZUSTAND 1010
