# ./dev translations: brings the catalogs in i18n/ up to date with the texts of the interface. New
# texts are left unfinished, for a translator to fill in; texts that are no more go.

command_translations() {
    in_environment sh -c 'PATH=$PATH:/usr/lib/qt6/bin
        exec lupdate -no-obsolete -locations none qml app -ts i18n/*.ts' ||
        fail "lupdate failed" "see its message above"
    local unfinished
    unfinished=$(grep -c 'type="unfinished"' i18n/*.ts | grep -v ':0$' || true)
    [ -z "$unfinished" ] || say "texts without a translation:"$'\n'"$unfinished"
}
