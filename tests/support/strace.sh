# Sourced by tests that check a program's system calls.

# Ends the test with 77 ("skipped") if strace cannot be used.
skip_unless_traceable() {
    if ! command -v strace >/dev/null; then
        echo "SKIPPED: strace is not installed, so the calls were not checked."
        exit 77
    fi
    if ! strace -o /dev/null true 2>/dev/null; then
        echo "SKIPPED: strace may not trace a process here, so the calls were not checked."
        exit 77
    fi
}
