# Sourced by tests that look at a program's system calls.

# Ends the test with 77, which is "skipped", where nothing can be traced.
skip_unless_traceable() {
    if ! command -v strace >/dev/null; then
        echo "SKIPPED: strace is not installed, so the calls were not looked at."
        exit 77
    fi
    if ! strace -o /dev/null true 2>/dev/null; then
        echo "SKIPPED: strace may not trace a process here, so the calls were not looked at."
        exit 77
    fi
}
