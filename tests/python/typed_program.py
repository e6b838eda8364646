"""A program with types, as a user of the package writes it."""

from __future__ import annotations

import sys

import rtti


def literals(path: str) -> dict[str, list[str]]:
    """The literals of each enumeration, by its name."""
    found: dict[str, list[str]] = {}
    for kind in rtti.load(path):
        if isinstance(kind, rtti.DiscreteEnum):
            found[kind.name] = [literal.name for literal in kind.literals]
        elif isinstance(kind, rtti.SeqEnum):
            found[kind.name] = list(kind.literals)
    return found


def bits(struct: rtti.Record) -> int:
    """The width of a packed struct."""
    return sum(leaf.bits.width for leaf in struct.leaves() if leaf.bits is not None)


def smallest_file() -> bytes:
    """A type file with one type."""
    return rtti.build([rtti.Draft("string", "string")])


def faults(path: str) -> list[str]:
    """What is wrong with a file, a line each."""
    try:
        rtti.load(path, offset=0)
    except rtti.Error as error:
        return [finding.text for finding in error.findings]
    return []


if __name__ == "__main__":
    print(literals(sys.argv[1]))
