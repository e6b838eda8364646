"""Building type files from the JSON form, from types of tables and from drafts."""

from __future__ import annotations

import json
import struct
from collections.abc import Iterable, Mapping
from typing import Any, Union

from ._core import FIELDS, Table, Type, build_from_json


class Draft:
    """A type that is yet to be built.

    It has the fields of its kind, under the names of the JSON form; links are other drafts, or types
    of any table. Fields that are not set are left out.

    >>> bit = Draft("seqEnum", "bit", encoding="2-State", enumKind="VLOG_BUILTIN_ENUM",
    ...             literals=["0", "1"], valueSize=1)
    >>> bit
    <rtti.Draft: seqEnum 'bit'>
    """

    kind: str
    name: str

    def __init__(self, kind: str, name: str = "", /, **fields: Any) -> None:
        if kind not in FIELDS:
            raise ValueError(f"there is no kind {kind!r}; there are {', '.join(FIELDS)}")
        object.__setattr__(self, "kind", kind)
        self.name = name
        for field, value in fields.items():
            setattr(self, field, value)

    def __setattr__(self, field: str, value: Any) -> None:
        if field not in FIELDS[self.kind]:
            raise AttributeError(
                f"a type of the kind {self.kind!r} has no field {field!r}; "
                f"it has {', '.join(FIELDS[self.kind])}"
            )
        object.__setattr__(self, field, value)

    def __getattr__(self, field: str) -> Any:
        raise AttributeError(f"the field {field!r} is not set")

    def __repr__(self) -> str:
        return f"<rtti.Draft: {self.kind} {self.name!r}>"


AnyType = Union[Type, Draft]


class _Numbering:
    """Gives ids to types in the order in which they are reached."""

    def __init__(self) -> None:
        self.types: list[AnyType] = []
        self._ids: dict[AnyType, int] = {}

    def id_of(self, wanted: AnyType) -> int:
        if wanted not in self._ids:
            self._ids[wanted] = len(self.types)
            self.types.append(wanted)
        return self._ids[wanted]

    def json_of(self, value: Any) -> Any:
        """The JSON form of a field's value."""
        if isinstance(value, (Type, Draft)):
            return self.id_of(value)
        if hasattr(value, "_asdict"):
            value = value._asdict()
        if isinstance(value, Mapping):
            return {key: self.json_of(item) for key, item in value.items()}
        if isinstance(value, (list, tuple)):
            return [self.json_of(item) for item in value]
        if isinstance(value, str):
            return _text(value)
        if isinstance(value, bytes):
            return value.hex()
        if isinstance(value, float):
            return _real(value)
        return value

    def described(self, type_id: int) -> dict[str, Any]:
        """The JSON object of a type that has an id."""
        wanted = self.types[type_id]
        described: dict[str, Any] = {"id": type_id, "kind": wanted.kind}
        for field in FIELDS[wanted.kind]:
            if isinstance(wanted, Type) or field in wanted.__dict__:
                described[field] = self.json_of(getattr(wanted, field))
        return described


def _text(text: str) -> Any:
    """A name; as bytes if these are not UTF-8."""
    try:
        text.encode()
        return text
    except UnicodeEncodeError:
        return {"hex": text.encode(errors="surrogateescape").hex()}


def _real(number: float) -> Any:
    """A number that JSON may be unable to express."""
    if number != number:
        return struct.pack(">d", number).hex()
    return str(number).replace("inf", "Infinity") if number in (_INFINITY, -_INFINITY) else number


_INFINITY = float("inf")


def build(
    types: str | bytes | Mapping[str, Any] | Iterable[AnyType] | Iterable[Mapping[str, Any]],
    offset: int = 0,
) -> bytes:
    """The bytes of a type file that begins at `offset` of its storage.

    The types are a document in the JSON form (as text or as an object), a list of objects in that
    form, or types of tables and drafts. Everything that types of tables and drafts refer to is built
    as well; ids are given in the order in which types come, so the types of a table keep theirs.
    Raises Error, with the place, for anything that a type file cannot hold.
    """
    if isinstance(types, bytes):
        return build_from_json(types, offset)
    if isinstance(types, str):
        return build_from_json(types.encode(errors="surrogatepass"), offset)
    if isinstance(types, Mapping):
        return build_from_json(json.dumps(types).encode(), offset)
    document: dict[str, Any] = {"types": []}
    if isinstance(types, Table):
        document["version"] = types.version
    items: list[Any] = list(types)
    if items and isinstance(items[0], Mapping):
        document["types"] = items
        return build_from_json(json.dumps(document).encode(), offset)
    numbering = _Numbering()
    for item in items:
        if not isinstance(item, (Type, Draft)):
            raise TypeError(f"a type or a draft is needed, not {type(item).__name__}")
        numbering.id_of(item)
    described = document["types"]
    while len(described) < len(numbering.types):
        described.append(numbering.described(len(described)))
    return build_from_json(json.dumps(document).encode(), offset)
