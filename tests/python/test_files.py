"""Whole files: loading, verifying, comparing, importing and building."""

import array
import json
import os
import statistics
import struct
import threading
import time
from pathlib import Path

import pytest

import rtti

EXAMPLES = Path(__file__).parents[2] / "examples" / "typefiles"
DATA = Path(__file__).parents[1] / "data"
KINDS = EXAMPLES / "svkinds_slang.typ"


@pytest.mark.parametrize("wrap", [str, Path, Path.read_bytes, lambda p: bytearray(p.read_bytes()),
                                  lambda p: memoryview(p.read_bytes()),
                                  lambda p: array.array("B", p.read_bytes())])
def test_paths_and_bytes_are_loaded(wrap):
    assert len(rtti.load(wrap(KINDS))) == 104


def test_a_table_knows_its_file():
    assert rtti.load(KINDS).file == str(KINDS)
    assert rtti.load(KINDS.read_bytes()).file is None


def test_a_file_may_begin_anywhere_in_its_storage():
    image = bytes(100) + rtti.build(rtti.load(KINDS), offset=100)
    assert len(rtti.load(image, 100)) == 104
    assert rtti.verify(image, offset=100) == ()
    text = '{"types": [{"id": 0, "kind": "string", "name": "s"}]}'
    for form in (text, text.encode(), json.loads(text)):
        assert rtti.load(bytes(100) + rtti.build(form, offset=100), 100)[0].name == "s"


def test_a_table_keeps_its_version():
    document = {"version": "TYPES 7", "types": [{"id": 0, "kind": "string", "name": "s"}]}
    table = rtti.load(rtti.build(document))
    assert rtti.load(rtti.build(table)).version == "TYPES 7"


def test_a_file_that_is_not_there_is_an_os_error(tmp_path):
    with pytest.raises(FileNotFoundError) as caught:
        rtti.load(tmp_path / "none.typ")
    assert caught.value.filename == str(tmp_path / "none.typ")
    with pytest.raises(FileNotFoundError):
        rtti.verify(tmp_path / "none.typ")
    with pytest.raises(OSError):
        rtti.load(tmp_path)


@pytest.mark.parametrize("source", [None, 3, 1.5, ["a"], "a\0b"])
def test_what_is_no_source_is_a_wrong_call(source):
    with pytest.raises((TypeError, ValueError)):
        rtti.load(source)


def test_a_fault_has_its_file_and_place(tmp_path):
    path = tmp_path / "cut.typ"
    path.write_bytes(b"\0" * 100 + b"no version")
    with pytest.raises(rtti.Error) as caught:
        rtti.load(path, 100)
    assert (caught.value.file, caught.value.place) == (str(path), "offset 100")
    assert str(caught.value).startswith(f"{path}: offset 100: too short for a type file")


def outside(data, type_id):
    """The file with the address of a record beyond the end."""
    (table,) = struct.unpack_from("<I", data, 36)
    return data[:table + 8 * type_id] + b"\xff" * 8 + data[table + 8 * type_id + 8:]


def test_a_record_outside_the_file_is_a_fault_of_its_type():
    with pytest.raises(rtti.Error) as caught:
        rtti.load(outside(KINDS.read_bytes(), 0), verify=False)
    assert caught.value.place == "type 0"


def test_verify_gives_every_finding_and_load_refuses_errors():
    damaged = outside(KINDS.read_bytes(), 103)
    found = rtti.verify(damaged)
    assert (found[0].severity, found[0].code, found[0].id) == (
        "error", "record-outside-storage", 103)
    with pytest.raises(rtti.Error) as caught:
        rtti.load(damaged)
    assert caught.value.findings == found
    assert caught.value.place == f"offset {found[0].offset}"
    assert str(caught.value) == caught.value.reason
    assert f"at {found[0].offset:#x}: " in caught.value.reason
    assert len(rtti.load(KINDS, verify=False)) == 104


def test_records_that_are_shared_do_not_fill_the_memory():
    data = bytearray(rtti.build([rtti.Draft("string", "n" * 1_000_000)]))
    (table,) = struct.unpack_from("<I", data, 36)
    struct.pack_into("<I", data, 32, 10_000)
    data[table:] = data[table:table + 8] * 10_000
    with pytest.raises(rtti.Error) as caught:
        rtti.load(bytes(data))
    assert "load-too-large" in {finding.code for finding in caught.value.findings}


@pytest.mark.parametrize("path", sorted(EXAMPLES.glob("*.typ")), ids=lambda path: path.stem)
def test_real_files_are_built_again_byte_for_byte(path):
    assert rtti.build(rtti.load(path)) == path.read_bytes()


def test_drafts_refer_to_drafts_and_to_types_of_tables():
    byte = rtti.load(KINDS)["kinds_pkg::byte_t"]
    node = rtti.Draft("class", "node", baseClass=None)
    node.members = [rtti.ClassMember("next", node), rtti.ClassMember("data", byte, flag=True)]
    built = rtti.load(rtti.build([node]))["node"]
    assert built.members[0].type is built
    assert built.members[1].type.name == "kinds_pkg::byte_t" and built.members[1].flag
    assert built.members[1].type.flattened_constraints() == (rtti.Range(7, 0, 0),)


def test_drafts_have_the_fields_of_their_kind_alone():
    with pytest.raises(ValueError, match="no kind 'union'"):
        rtti.Draft("union")
    with pytest.raises(AttributeError, match="has no field 'members'"):
        rtti.Draft("string", "s", members=[])
    with pytest.raises(AttributeError, match="'flags' is not set"):
        rtti.Draft("string", "s").flags


@pytest.mark.parametrize("number", [float("inf"), float("-inf"), float("nan"), 1e-300])
def test_reals_keep_their_bits(number):
    draft = rtti.Draft("real", "r", flavour=0, left=number, right=0.0, direction=1)
    left = rtti.load(rtti.build([draft]))[0].left
    assert struct.pack("<d", left) == struct.pack("<d", number)


@pytest.mark.parametrize("types, place", [
    ({"types": [{"id": 0, "kind": "string", "name": 3}]}, "/types/0/name"),
    ([{"id": 0, "kind": "typedef", "name": "t", "dataType": 9}], "/types/0/dataType"),
    ("{", "line 1"), (b"\xff", "line 1"),
    ('{"types": [\n{"id": 0, "kind": "string", "name": "\udcff"}]}', "line 2")])
def test_what_cannot_be_built_is_a_fault_with_its_place(types, place):
    with pytest.raises(rtti.Error) as caught:
        rtti.build(types)
    assert caught.value.place.startswith(place)


def test_what_describes_no_type_is_a_wrong_call():
    with pytest.raises(TypeError, match="not int"):
        rtti.build([1])


def test_tables_are_compared():
    a = rtti.load(KINDS)
    assert rtti.diff(a, rtti.load(KINDS)).verdict == "identical"
    extra = rtti.load(rtti.build([*a, rtti.Draft("string", "extra")]))
    found = rtti.diff(a, extra)
    assert (found.verdict, found.removed, found.added) == ("compatible", (), (extra["extra"],))
    assert found.counts["typesOfB"] == 105
    assert rtti.diff(extra, a).removed == (extra["extra"],)


def test_changes_say_what_was_and_what_is():
    a, b = (rtti.load(rtti.build([rtti.Draft("integer", "i", range=rtti.Range(0, top, 1))]))
            for top in (7, 8))
    (change,) = rtti.diff(a, b).changed
    assert (change.a, change.b, change.path, change.field) == (a[0], b[0], "i", "range")
    assert "7" in change.old and "8" in change.new


def test_front_ends_are_imported():
    wave = sorted((DATA / "import" / "ghdl").glob("*.ghw"))[0]
    from_path, from_bytes = rtti.import_(wave), rtti.import_(wave.read_bytes())
    assert len(from_path) > 0 and rtti.diff(from_path, from_bytes).verdict == "identical"
    assert from_path.file is None


def test_imports_take_options_and_say_what_they_do_not_keep():
    tree = DATA / "import" / "verilator" / "kinds-5.006.tree"
    plain = rtti.import_(tree)
    assert f"{tree}:513: the bound of this queue is not kept" in plain.notes
    assert not any("__typeimp" in kind.name for kind in plain)
    assert any("__typeimp" in kind.name for kind in rtti.import_(tree, keep_anonymous=True))
    part = rtti.import_(tree, packages=["p"])
    assert 0 < len(part) < len(plain)


def test_what_an_import_cannot_read_is_a_fault_with_its_place(tmp_path):
    path = tmp_path / "none.tree"
    path.write_text("nothing of the kind\n")
    with pytest.raises(rtti.Error) as caught:
        rtti.import_(path)
    assert caught.value.file == str(path) and str(caught.value).count(str(path)) == 1
    with pytest.raises(ValueError, match="there is no format \"vcd\""):
        rtti.import_(path, format="vcd")
    with pytest.raises(TypeError, match="nothing to import"):
        rtti.import_()
    with pytest.raises(FileNotFoundError):
        rtti.import_(tmp_path / "no-file")


def turns_during(act):
    """How often another thread gets on in the middle of a call that takes long."""
    turns = []
    running, done = threading.Event(), threading.Event()

    def count():
        running.set()
        while not done.is_set():
            turns.append(time.perf_counter())
            time.sleep(0.0001)

    thread = threading.Thread(target=count)
    thread.start()
    running.wait()
    begin = time.perf_counter()
    kept = act()  # Others may run before what it gave is released.
    tenth = (time.perf_counter() - begin) / 10
    del kept
    done.set()
    thread.join()
    return sum(begin + tenth < turn < begin + 9 * tenth for turn in turns)


@pytest.fixture(scope="module")
def large():
    return rtti.build([{"id": i, "kind": "string", "name": f"s{i}"} for i in range(300_000)])


@pytest.mark.parametrize("call", [rtti.load, rtti.verify], ids=["load", "verify"])
def test_other_threads_run_during_a_call(large, call):
    assert statistics.median(turns_during(lambda: call(large)) for _ in range(21)) >= 3


def test_a_file_that_shrinks_while_it_is_open_does_no_harm(tmp_path):
    path = tmp_path / "shrinking.typ"
    data = KINDS.read_bytes()
    path.write_bytes(data)
    stop = threading.Event()

    def shrink():
        while not stop.is_set():
            path.write_bytes(data)
            os.truncate(path, 50)

    thread = threading.Thread(target=shrink)
    thread.start()
    for _ in range(200):
        try:
            rtti.load(path)
        except (rtti.Error, OSError):
            pass
    stop.set()
    thread.join()
