# ./dev lint: clang-tidy over the program's sources, qmllint over the interface.

command_lint() {
    build_preset asan # the generated headers and the compilation database
    say "clang-tidy"
    git ls-files -z --cached --others --exclude-standard '*.cpp' | grep -zvE '_win\.cpp$|^(tests|fuzz|bench)/' |
        in_environment xargs -0 -n1 -P"$(nproc)" clang-tidy -p build/asan --quiet ||
        fail "clang-tidy found something" "mend the lines named above"
    say "includes"
    in_environment tools/dev/check-includes build/asan/rooms.txt ||
        fail "a room reaches where it has no arrow" "link it in its CMakeLists.txt, or mend the include"
    say "qmllint"
    in_environment /usr/lib/qt6/bin/qmllint -W 0 -I build/asan/qml_modules \
        build/asan/qml_modules/Pevrix/*.qml tools/gallery/*.qml ||
        fail "qmllint found something" "mend the lines named above"
    local uncompiled
    # A function of an object may always be another one's in a derived type, which nobody can rule out.
    uncompiled=$(in_environment /usr/lib/qt6/bin/qmllint --compiler warning -I build/asan/qml_modules \
        build/asan/qml_modules/Pevrix/*.qml 2>&1 |
        grep '^Warning: .*\[compiler\]$' | grep -v ' can be shadowed \|shadowable base type' || true)
    [ -z "$uncompiled" ] || fail "not all of the interface is compiled ahead of time:
$uncompiled" "give the names above types that the compiler knows"
}
