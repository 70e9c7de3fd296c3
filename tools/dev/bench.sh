# ./dev bench: every benchmark, or those whose name contains the filter.

command_bench() {
    local filter=${1:-} program found=
    build_preset native
    for program in build/native/bin/pevrix_bench_*; do
        case $program in
            *pevrix_bench_*"$filter"*)
                found=yes
                printf '\n== %s\n' "${program##*/pevrix_bench_}"
                in_environment "$program" || fail "$program failed" "see its message above"
                ;;
        esac
    done
    [ -n "$found" ] || fail "no benchmark's name contains '$filter'" \
        "they are: $(ls build/native/bin | sed -n 's/^pevrix_bench_//p' | xargs)"
}
