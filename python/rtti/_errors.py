"""The exception of the package."""

from __future__ import annotations

from typing import TYPE_CHECKING

if TYPE_CHECKING:
    from ._core import Finding


class Error(ValueError):
    """A file, a text or a type that cannot be used. Its text is one line: file, place and reason."""

    def __init__(
        self,
        reason: str,
        file: str | None = None,
        place: str | None = None,
        findings: tuple[Finding, ...] = (),
    ) -> None:
        in_place = place is not None and file is not None and place.startswith(file)
        # What the verifier says has the place in it.
        parts = [None if in_place else file, None if findings else place, reason]
        super().__init__(": ".join(part for part in parts if part))
        self.reason = reason
        """Why, as a clause."""
        self.file = file
        """The path, or None for bytes in memory."""
        self.place = place
        """Where: "offset 40", "type 7", "design.tree:12", "/types/3/members/0/name"."""
        self.findings = findings
        """What the verifier found, if it refused the file."""
