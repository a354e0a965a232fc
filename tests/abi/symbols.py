"""What a built library offers, and what it asks of the host that is loaded beside it, by mangled names."""

import subprocess

# Left open by every library, and answered by nobody or by the run-time system.
HOOKS = {"__gmon_start__", "_ITM_deregisterTMCloneTable", "_ITM_registerTMCloneTable"}


def listed(library, which):
    run = subprocess.run(["nm", "--dynamic", which, library], capture_output=True, text=True, check=True)
    return {line.split()[-1] for line in run.stdout.splitlines()}


def offered(library):
    return listed(library, "--defined-only")


def asked_of_the_host(library):
    """What is left open and bears no version, as the symbols of system libraries do."""
    return {name for name in listed(library, "--undefined-only") if "@" not in name} - HOOKS
