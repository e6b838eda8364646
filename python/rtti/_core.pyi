"""The part of the package that is compiled."""

import os
from collections.abc import Iterator, Mapping
from typing import NamedTuple, SupportsIndex, Union, final

from ._build import Draft

_Source = Union[str, os.PathLike[str], bytes, bytearray, memoryview]

FIELDS: Mapping[str, tuple[str, ...]]
"""The names of the fields of each kind, in the order of the record."""

__version__: str

class Range(NamedTuple):
    """A range: left and right bound; the direction is 1 for to, 0 for downto, -2 for an open range."""

    si: int
    ei: int
    dir: int

class Literal(NamedTuple):
    """A literal of a discrete enumeration, with the bytes of its value in the order of the file."""

    name: str
    value: bytes

class Unit(NamedTuple):
    """A unit of a physical type, in primary units."""

    name: str
    value: int

class Member(NamedTuple):
    """A member of a record, struct or union, with the ranges that narrow its type."""

    name: str
    type: Type | Draft | None
    constraints: tuple[Range, ...] = ...

class ClassMember(NamedTuple):
    """A member of a class."""

    name: str
    type: Type | Draft | None
    constraints: tuple[Range, ...] = ...
    flag: bool = ...

class Stride(NamedTuple):
    """A packed array of structs on the way to a leaf: its elements, and the bits from one to the next."""

    count: int  # type: ignore[assignment]
    bits: int

class Bits(NamedTuple):
    """The bits of a leaf in the packed value around it: the least significant one, and how many."""

    offset: int
    width: int
    strides: tuple[Stride, ...]

class Leaf(NamedTuple):
    """A value that a type is made of."""

    path: str
    type: Type | None
    declaredType: Type | None
    encoding: str | int | None
    dimensions: tuple[Range | str, ...]
    bits: Bits | None
    valueRange: Range | None
    seenAbove: bool

class Use(NamedTuple):
    """A type that leads to another one: by this field, to the next type on the way."""

    type: Type
    field: str
    member: str | None
    dimension: int | None
    distance: int
    next: Type

class Finding(NamedTuple):
    """What the verifier found: `severity` is "error" or "warning", `id` None for the whole file."""

    severity: str
    code: str
    id: int | None
    field: str
    offset: int
    text: str

class Change(NamedTuple):
    """A difference between a type of A and what became of it in B."""

    a: Type | None
    b: Type | None
    path: str
    field: str
    old: str | None
    new: str | None

class Diff(NamedTuple):
    """How the types of two tables differ."""

    verdict: str
    rule: str
    removed: tuple[Type, ...]
    changed: tuple[Change, ...]
    added: tuple[Type, ...]
    counts: dict[str, int]

class Type:
    """A type of a table. It keeps the table alive, and there is one object of it at a time."""

    @property
    def name(self) -> str:
        """Empty if there is none. Bytes that are not UTF-8 are surrogates, as in file names."""
    @property
    def flags(self) -> int: ...
    @property
    def id(self) -> int: ...
    @property
    def table(self) -> Table: ...
    @property
    def kind(self) -> str:
        """The word for the kind in the JSON form, such as "record"."""
    @property
    def label(self) -> str:
        """Kind and name, or kind and shape: 'packed array logic [7:0]'. Printable ASCII."""
    @property
    def language(self) -> str:
        """The language that the type belongs to, "sv" or "vhdl"."""
    @property
    def encoding(self) -> str | int:
        """How a value is encoded, whatever was asked before."""
    @property
    def size(self) -> int | None:
        """The size of a value in bytes; None if the file does not give it."""
    @property
    def dimensions(self) -> tuple[Range | str, ...]:
        """Those of an array, outermost first: ranges, "dynamic", "queue" or "associative"."""
    @property
    def constraints(self) -> tuple[Range, ...]:
        """The ranges in the type's own record."""
    def flattened_constraints(self, *, limit: int = 1000000) -> tuple[Range, ...]:
        """A range for each array dimension in and below the type. Error after `limit` steps."""
    def leaves(self, *, limit: int = 10000000) -> Iterator[Leaf]:
        """The values that the type is made of. Error after `limit` parts."""
    def declaration(self, language: str | None = None) -> str:
        """The declaration in the type's own language. ValueError if that is not `language`."""
    def uses(self, *, all: bool = False) -> list[Use]:
        """The references to this type; with `all`, each type that leads here, nearest first."""
    def references(self) -> tuple[Type, ...]:
        """The types that the fields refer to, each once."""

@final
class SeqEnum(Type):
    """An enumeration whose literals stand for 0, 1, 2, ..."""

    @property
    def enumKind(self) -> str | int: ...
    @property
    def literals(self) -> tuple[str, ...]: ...
    @property
    def valueSize(self) -> int: ...

@final
class DiscreteEnum(Type):
    """An enumeration over a base type."""

    @property
    def baseType(self) -> Type | None: ...
    @property
    def valueSize(self) -> int: ...
    @property
    def literals(self) -> tuple[Literal, ...]: ...

@final
class Integer(Type):
    """An integer type."""

    @property
    def range(self) -> Range: ...

@final
class Real(Type):
    """A real type."""

    @property
    def flavour(self) -> int: ...
    @property
    def left(self) -> float: ...
    @property
    def right(self) -> float: ...
    @property
    def direction(self) -> int: ...

@final
class Typedef(Type):
    """An alias of another type, which it can narrow."""

    @property
    def dataType(self) -> Type | None: ...

@final
class Access(Type):
    """A VHDL access type."""

    @property
    def refType(self) -> Type | None: ...
    @property
    def alignment(self) -> int: ...
    @property
    def valueSize(self) -> int: ...

@final
class Chandle(Type):
    """The SystemVerilog chandle."""

@final
class Event(Type):
    """The SystemVerilog event."""

    @property
    def flavour(self) -> int: ...

@final
class File(Type):
    """A VHDL file type."""

    @property
    def refType(self) -> Type | None: ...
    @property
    def alignment(self) -> int: ...
    @property
    def valueSize(self) -> int: ...

@final
class Physical(Type):
    """A VHDL physical type."""

    @property
    def units(self) -> tuple[Unit, ...]: ...

@final
class Array(Type):
    """An array of fixed shape."""

    @property
    def arrayKind(self) -> str | int: ...
    @property
    def elementType(self) -> Type | None: ...
    @property
    def indexTypes(self) -> tuple[Type | None, ...]: ...
    @property
    def svTypeId(self) -> int: ...

@final
class Record(Type):
    """A record, struct or union."""

    @property
    def recordKind(self) -> str | int: ...
    @property
    def members(self) -> tuple[Member, ...]: ...
    @property
    def svTypeId(self) -> int: ...

@final
class DynamicArray(Type):
    """A SystemVerilog dynamic array."""

    @property
    def elementType(self) -> Type | None: ...
    @property
    def svTypeId(self) -> int: ...

@final
class Queue(Type):
    """A SystemVerilog queue."""

    @property
    def elementType(self) -> Type | None: ...
    @property
    def svTypeId(self) -> int: ...

@final
class AssocArray(Type):
    """A SystemVerilog associative array."""

    @property
    def elementType(self) -> Type | None: ...
    @property
    def svTypeId(self) -> int: ...
    @property
    def indexType(self) -> Type | None: ...

@final
class Class(Type):
    """A SystemVerilog class."""

    @property
    def baseClass(self) -> Type | None: ...
    @property
    def svTypeId(self) -> int: ...
    @property
    def members(self) -> tuple[ClassMember, ...]: ...

@final
class String(Type):
    """The SystemVerilog string."""

@final
class Wildcard(Type):
    """The index type of an associative array that takes any index."""

@final
class LeafIterator:
    def __iter__(self) -> LeafIterator: ...
    def __next__(self) -> Leaf: ...

@final
class TypeIterator:
    def __iter__(self) -> TypeIterator: ...
    def __next__(self) -> Type: ...

@final
class Table:
    """The types of a file, by id and by name."""

    def __len__(self) -> int:
        """The number of ids."""
    def __getitem__(self, key: SupportsIndex | str) -> Type:
        """IndexError for an id outside the table, KeyError if no type or several have the name."""
    def __iter__(self) -> Iterator[Type]:
        """The types by id, without ids whose record builds no type."""
    def __contains__(self, key: object) -> bool: ...
    def named(self, name: str) -> list[Type]:
        """The types with a name, except those that have a typedef of the same name."""
    @property
    def file(self) -> str | None:
        """The path, or None for types that did not come from a file."""
    @property
    def version(self) -> str: ...
    @property
    def notes(self) -> tuple[str, ...]:
        """What an import could not keep."""

def load(source: _Source, offset: int = 0, *, verify: bool = True) -> Table:
    """Loads all types. A file with errors is refused. `verify=False` is faster, but only for files
    that you trust: others can take any amount of memory and time."""

def verify(source: _Source, offset: int = 0) -> tuple[Finding, ...]:
    """What is wrong with a type file."""

def diff(a: Table, b: Table) -> Diff:
    """Compares types by kind, name and shape, never by id."""

def import_(
    *sources: _Source,
    packages: list[str] = ...,
    keep_anonymous: bool = False,
    format: str | None = None,
) -> Table:
    """The types in the output of front ends, whose format is recognised by its content."""

def build_from_json(text: bytes, offset: int = 0) -> bytes: ...
