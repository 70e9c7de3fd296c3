# ./dev demo: the program and a simulated phone on a virtual display of their own.

command_demo() {
    build_preset native --target pevrix phonesim softcam
    rm -rf out/demo
    mkdir -p out/demo
    in_environment bash tools/dev/demo-session.sh
}
