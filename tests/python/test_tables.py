"""Tables and types, as Python sees them."""

import gc
import json
from pathlib import Path

import pytest

import rtti

EXAMPLES = Path(__file__).parents[2] / "examples" / "typefiles"
SCHEMA = Path(__file__).parents[2] / "docs" / "schemas" / "types.schema.json"
EVERY_KIND = Path(__file__).parents[1] / "data" / "every-kind.json"


@pytest.fixture
def kinds():
    return rtti.load(EXAMPLES / "svkinds_slang.typ")


def built(*types):
    return rtti.load(rtti.build(list(types)))


def bit():
    return rtti.Draft("seqEnum", "bit", encoding="2-State", enumKind="VLOG_BUILTIN_ENUM",
                      literals=["0", "1"], valueSize=1)


def packed(element, *ranges):
    return rtti.Draft("array", "", arrayKind="VLOG_FIXED_PACKED_ARRAY", elementType=element,
                      indexTypes=[None] * len(ranges), constraints=list(ranges))


def test_a_table_is_indexed_by_id_and_by_name(kinds):
    assert kinds[33].id == 33
    assert kinds["kinds_pkg::pss_t"].kind == "typedef"  # Not the struct of that name behind it.
    assert kinds["kinds_pkg::pss_t"].dataType is kinds[33]


def test_a_table_has_a_length_and_is_iterated(kinds):
    assert [kind.id for kind in kinds] == list(range(len(kinds)))


@pytest.mark.parametrize("key, error", [
    (10**9, IndexError), (10**30, IndexError), (-1, IndexError), ("no such", KeyError),
    ("\udcff", KeyError), (1.5, TypeError), (None, TypeError)])
def test_a_table_says_what_it_does_not_have(kinds, key, error):
    with pytest.raises(error):
        kinds[key]


def test_a_name_of_several_types_gives_their_ids():
    table = built(rtti.Draft("string", "s"), rtti.Draft("chandle", "s"))
    with pytest.raises(KeyError, match=r"2 types have the name 's': 0 \(string\), 1 \(chandle\)"):
        table["s"]
    assert [found.id for found in table.named("s")] == [0, 1]


def test_a_table_knows_what_it_contains(kinds):
    assert 33 in kinds and "kinds_pkg::pss_t" in kinds and kinds[33] in kinds
    assert len(kinds) not in kinds and -1 not in kinds and "no such" not in kinds
    assert 10**30 not in kinds and None not in kinds
    assert built(rtti.Draft("string", "s"))[0] not in kinds


def plain(value):
    """A field's value as the JSON form has it."""
    if isinstance(value, rtti.Type):
        return value.id
    if hasattr(value, "_asdict"):
        return {key: plain(item) for key, item in value._asdict().items()}
    if isinstance(value, tuple):
        return [plain(item) for item in value]
    return value.hex() if isinstance(value, bytes) else value


def test_types_have_the_fields_of_the_json_form():
    document = json.loads(EVERY_KIND.read_text())
    table = rtti.load(rtti.build(document), verify=False)
    assert {kind["kind"] for kind in document["types"]} == set(rtti.FIELDS)
    left_out = {"flags": 0, "constraints": [], "svTypeId": -99, "flag": False}
    compared = 0
    for described in document["types"]:
        for field in rtti.FIELDS[described["kind"]]:
            expected = described.get(field, left_out.get(field))
            value = plain(getattr(table[described["id"]], field))
            if field == "members":
                value = [{key: item for key, item in member.items()
                          if key in given or item != left_out[key]}
                         for member, given in zip(value, expected, strict=True)]
            if isinstance(value, (int, str, list)) and "hex" not in str(expected):
                assert value == expected, (described["id"], field)
                compared += 1
    assert compared > 2 * len(document["types"])


def test_the_fields_are_those_of_the_schema():
    definitions = json.loads(SCHEMA.read_text())["$defs"]
    for kind, fields in rtti.FIELDS.items():
        assert set(definitions["kind_" + kind]["properties"]) == {"id", "kind", *fields}


def test_links_are_types(kinds):
    struct = kinds[33]
    assert [(member.name, member.type) for member in struct.members] == [
        ("a", kinds[7]), ("b", kinds[32])]
    assert kinds[32].elementType is kinds[7]


def test_queries_are_answered():
    word = packed(bit(), rtti.Range(7, 0, 0))
    (outer, *_) = built(rtti.Draft("dynamicArray", "", elementType=word))
    assert outer.encoding == "Byte" and outer.size is None
    assert outer.dimensions == ("dynamic", rtti.Range(7, 0, 0))
    assert outer.constraints == ()
    assert outer.elementType.encoding == "2-State"
    assert outer.elementType.constraints == (rtti.Range(7, 0, 0),)
    assert outer.elementType.flattened_constraints() == (rtti.Range(7, 0, 0),)
    assert outer.elementType.elementType.size == 1


def test_flattening_ends_at_a_limit():
    rows = packed(bit(), *[rtti.Range(7, 0, 0)] * 10)
    with pytest.raises(rtti.Error, match="type 0: its constraints take more than 5 steps"):
        built(rows)[0].flattened_constraints(limit=5)


def test_leaves_have_paths_and_bits():
    pair = rtti.Draft("record", "pair_t", recordKind="VLOG_PACKED_STRUCT", members=[
        rtti.Member("high", packed(bit(), rtti.Range(6, 0, 0))), rtti.Member("low", bit())])
    leaves = list(built(pair)[0].leaves())
    assert [(leaf.path, leaf.bits) for leaf in leaves] == [
        ("pair_t.high", rtti.Bits(1, 7, ())), ("pair_t.low", rtti.Bits(0, 1, ()))]


def test_leaves_say_what_they_are():
    pair = rtti.Draft("record", "pair_t", recordKind="VLOG_PACKED_STRUCT", members=[
        rtti.Member("high", packed(bit(), rtti.Range(6, 0, 0))), rtti.Member("low", bit())])
    number = rtti.Draft("integer", "integer", range=rtti.Range(0, 99, 1))
    small = rtti.Draft("typedef", "small", dataType=number, constraints=[rtti.Range(3, 7, 1)])
    node = rtti.Draft("class", "node", baseClass=None)
    node.members = [rtti.ClassMember("pairs", packed(pair, rtti.Range(3, 0, 0))),
                    rtti.ClassMember("small", small), rtti.ClassMember("next", node)]
    table = built(node)
    high, low, narrow, again = table[0].leaves()
    assert high.type.name == "bit" and high.declaredType.kind == "array"
    assert (high.encoding, high.dimensions) == ("2-State", (rtti.Range(6, 0, 0),))
    assert high.bits == rtti.Bits(1, 7, (rtti.Stride(4, 8),))
    assert low.bits == rtti.Bits(0, 1, (rtti.Stride(4, 8),)) and not low.seenAbove
    assert (narrow.type.name, narrow.declaredType.name) == ("integer", "small")
    assert (narrow.valueRange, narrow.bits) == (rtti.Range(3, 7, 1), None)
    assert high.valueRange is None
    assert again.type is table[0] and again.seenAbove


def test_leaves_end_at_a_limit(kinds):
    with pytest.raises(rtti.Error, match="type 33: it has more than 2 parts"):
        list(kinds[33].leaves(limit=2))


def test_declarations_are_in_the_language_of_the_type(kinds):
    assert kinds[33].declaration("sv") == kinds[33].declaration()
    assert kinds[33].declaration().startswith("typedef struct packed {\n    bit a;")
    with pytest.raises(ValueError, match='type 33 belongs to "sv"'):
        kinds[33].declaration("vhdl")
    with pytest.raises(ValueError, match='not "c"'):
        kinds[33].declaration("c")


def test_uses_lead_to_the_types_that_refer(kinds):
    assert kinds[33].uses() == [
        rtti.Use(kinds[34], "dataType", None, None, 1, kinds[33])]
    assert [use.type for use in kinds[32].uses(all=True)][:2] == [kinds[33], kinds[34]]
    assert kinds[33].references() == (kinds[7], kinds[32])


def test_uses_say_the_member_and_the_dimension(kinds):
    assert rtti.Use(kinds[33], "members", "b", None, 1, kinds[32]) in kinds[32].uses()
    index = rtti.Draft("integer", "index", range=rtti.Range(0, 9, 1))
    table = built(rtti.Draft("array", "grid", arrayKind="VHDL_ARRAY", elementType=bit(),
                             indexTypes=[None, index], constraints=[rtti.Range(0, 9, 1)] * 2))
    (use,) = table["index"].uses()
    assert (use.type, use.field, use.dimension) == (table["grid"], "indexTypes", 1)


def test_a_type_has_a_label_and_a_language(kinds):
    assert (kinds[32].label, kinds[32].language) == ("packed array bit [6:0]", "sv")
    assert rtti.load(EXAMPLES / "vhkinds_rti.typ")[0].language == "vhdl"


def test_texts_are_readable(kinds):
    assert repr(kinds[33]) == '<rtti.Record 33: packed struct "kinds_pkg::pss_t">'
    assert repr(built(bit())) == "<rtti.Table: 1 type>"
    assert repr(kinds).endswith("svkinds_slang.typ': 104 types>")
    assert repr(bit()) == "<rtti.Draft: seqEnum 'bit'>"


def test_names_of_any_bytes_come_back():
    text = b"\xff\x01".decode(errors="surrogateescape")
    table = built(rtti.Draft("string", text))
    assert table[0].name == text and table[text] is table[0]
    assert repr(table[0]) == r'<rtti.String 0: string "\xFF\x01">'


def test_a_table_lives_as_long_as_a_type_of_it():
    struct = rtti.load(EXAMPLES / "svkinds_slang.typ")[33]
    gc.collect()
    assert struct.members[1].type.elementType.name == "bit"
    assert len(struct.table) == 104


def test_a_table_lives_as_long_as_something_walks_through_it():
    leaves = rtti.load(EXAMPLES / "svkinds_slang.typ")[33].leaves()
    types = iter(rtti.load(EXAMPLES / "svkinds_slang.typ"))
    gc.collect()
    assert len(list(leaves)) == 2 and len(list(types)) == 104


def test_a_type_is_one_object():
    table = rtti.load(EXAMPLES / "svkinds_slang.typ")
    assert table[33] is table[33] and table[33] != rtti.load(EXAMPLES / "svkinds_slang.typ")[33]
