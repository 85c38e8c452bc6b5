#!/bin/bash
# Makes the installer:  make-msi.sh ARCH VERSION PROGRAM DATABASE-PROGRAM HELP ICON TARGET.msi    (ARCH: x86 or x64)
#
# wixl knows a part of what an installer can say; the rest is entered into the database that it makes.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
arch=$1 version=$2 program=$3 maker=$4 help=$5 icon=$6 target=$7
upgrade_code=EF62E138-4AAD-4F0D-A754-29EF2F1B8957
folder_component=4DEE3DDF-66E1-48C8-BA90-DFA3D9DBF463
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# wixl takes its files from the folder where it is started.
link() { ln -s "$(realpath "$1")" "$work/$2"; }
link "$program" Blattwart.exe
link "$maker" DatenbankAnlegen.exe
link "$help" Tarvix.chm
link "$icon" Blattwart.ico
msi=$work/installer.msi
(cd "$work" && wixl -a "$arch" -D "Arch=$arch" -D "Version=$version" -D "UpgradeCode=$upgrade_code" \
    -D "FolderGuid=$folder_component" -o "$msi" "$here/Blattwart.wxs" >log 2>&1) || { cat "$work/log" >&2; exit 1; }

# Texts are in Windows-1252.
printf '\r\n\r\n1252\t_ForceCodepage\r\n' >"$work/_ForceCodepage.idt"
msibuild "$msi" -i "$work/_ForceCodepage.idt"

sql() { msibuild "$msi" -q "$1"; }

# Only folders that are named here go when they are empty.
sql "INSERT INTO CreateFolder (Directory_, Component_) VALUES ('LIBRARYDIR', 'Library')"
sql "INSERT INTO CreateFolder (Directory_, Component_) VALUES ('VENDORDATADIR', 'DatabaseFolder')"

# Where an older version lies, the newer one goes, and the one that is to be removed is found.
sql 'CREATE TABLE CompLocator (Signature_ CHAR(72) NOT NULL, ComponentId CHAR(38) NOT NULL, Type INT
     PRIMARY KEY Signature_)'
sql "INSERT INTO CompLocator (Signature_, ComponentId, Type) VALUES ('FindFolder', '{$folder_component}', 0)"
sql "INSERT INTO AppSearch (Property, Signature_) VALUES ('INSTALLDIR', 'FindFolder')"
sql "UPDATE Property SET Value = 'OLDERVERSION;NEWERVERSION;DEFDB;INSTALLDIR'
     WHERE Property = 'SecureCustomProperties'"

# The same version again replaces as well (256 + 512), so that no two can ever stand beside each other.
sql "DELETE FROM Upgrade WHERE ActionProperty = 'OLDERVERSION'"
sql "INSERT INTO Upgrade (UpgradeCode, VersionMin, VersionMax, Attributes, ActionProperty)
     VALUES ('{$upgrade_code}', '0.0.0', '$version', 768, 'OLDERVERSION')"

# A path that the office has set stays.
sql "UPDATE InstallExecuteSequence SET Condition = 'DEFDB ~= STARTDATABASE'
     WHERE Action = 'RemoveRegistryValues'"

# By its version a program is known to be newer, not by its date.
for file in Blattwart.exe DatenbankAnlegen.exe; do
    sql "UPDATE File SET Version = '$version.0', Language = '1031' WHERE File = '$file'"
    sql "DELETE FROM MsiFileHash WHERE File_ = '$file'"
done

package="{$(tr a-f A-F </proc/sys/kernel/random/uuid)}"
msibuild "$msi" -s "Blattwart $version" Ormeda "$([ "$arch" = x64 ] && echo x64 || echo Intel);1031" "$package"
mv "$msi" "$target"
