# Shell functions for the cases of check-advice.txt. Each database function runs SQL on one database of the installation.
general() { sqlite3 "$ROOT/data/gnrdb.accdb" "$1"; }
configuration() { sqlite3 "$ROOT/conf/usrcnfg.accdb" "$1"; }
work() { sqlite3 "$ROOT/report/repdb.accdb" "$1"; }
forms() { sqlite3 "$ROOT/report/repfrmdb.accdb" "$1"; }
# Replaces a file by garbage.
garble() { head -c 8192 /dev/zero | tr '\0' x > "$ROOT/$1"; }
# Restores a file from the backup.
restore() { cp -p "$ROOT.backup/$1" "$ROOT/$1"; }
# Runs SQL on a database and kills the writer before the end of its transaction; the journal stays.
interrupt_write() {
    printf 'PRAGMA cache_size = 1;\nBEGIN;\n%s;\n.shell kill -KILL $PPID\n' "$2" | sqlite3 "$ROOT/$1" || true
    test -s "$ROOT/$1-journal"
}
# Makes another installation WORK/shiten without registering its report host.
other_installation() { MEIBO_MACHINE_REGISTRY=$WORK/other suite-setup init "$WORK/shiten" --staff 2 >/dev/null; }
# A print service that does not exist.
export CUPS_SERVER=$WORK/no-print-service
