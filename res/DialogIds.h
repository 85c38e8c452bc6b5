#pragma once

/* Ids of the dialog templates and their controls; read by the resource compiler too. */
#define IDD_KOPIEREN 300
#define IDD_UMBENENNEN 301
#define IDD_INFO 302
#define IDD_WARTEN 303
#define IDD_PLANLISTE 304
#define IDD_PLAN_UMBENENNEN 305
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
#define IDC_LISTE 1011
#define IDC_FILTER 1012
#define IDC_UMBENENNEN 1013
#define IDC_KOPIEREN 1014
#define IDC_CSV 1015
#define IDC_RUECKGAENGIG 1016
#define IDC_AKTUALISIEREN 1017
#define IDC_MUSTER 1018
#define IDC_SUCHEN 1019
#define IDC_ERSETZEN 1020
#define IDC_AB 1021
#define IDC_SCHRITT 1022
#define IDC_STELLEN 1023
#define IDC_NEU_BEGINNEN 1024
