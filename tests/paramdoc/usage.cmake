# The command line itself: version, help, exit status 2 for wrong usage.
include(${CMAKE_CURRENT_LIST_DIR}/support.cmake)

paramdoc(0 --version)
expect("${out}" "^paramdoc [0-9]+\\.[0-9]+\\.[0-9]+" "--version")
paramdoc(0 --help)
expect("${out}" "check.*convert.*diff.*get.*info.*pack.*set.*show.*wobble" "--help lists commands")
foreach(command check convert diff get info pack set show wobble)
  paramdoc(0 ${command} --help)
  expect("${out}" "Examples:\n  paramdoc ${command}" "${command} --help")
endforeach()

paramdoc(2 frobnicate job.cfg)
expect("${err}" "unknown command 'frobnicate'" "unknown command")
paramdoc(2)
expect("${err}" "Commands: check" "no command")
paramdoc(2 --frobnicate)
expect("${err}" "unknown option '--frobnicate'" "unknown option")
paramdoc(2 show)
expect("${err}" "paramdoc show: file is required" "missing argument")
paramdoc(2 show a.cfg b.cfg)
paramdoc(2 show --indent x a.cfg)

# Help that cannot be written is a failure too.
paramdoc(1 --help OUTPUT /dev/full)
expect("${err}" "standard output: No space left on device" "--help > /dev/full")
