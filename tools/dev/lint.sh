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
}
