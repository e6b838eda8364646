"""Nothing that Python code does ends the interpreter."""

import copy
import gc
import pickle
import random
import threading
from pathlib import Path

import pytest

import rtti

EXAMPLES = Path(__file__).parents[2] / "examples" / "typefiles"
CORPUS = Path(__file__).parents[2] / "fuzz" / "corpus"
CLASSES = [value for value in vars(rtti).values()
           if isinstance(value, type) and (issubclass(value, rtti.Type) or value is rtti.Table)]


def ask_everything(table):
    """Asks each type everything, whatever the answer."""
    for type_ in table:
        repr(type_)
        for question in (*rtti.FIELDS[type_.kind], "encoding", "size", "dimensions", "language"):
            getattr(type_, question)
        type_.declaration()
        type_.uses(), type_.references()
        try:
            type_.flattened_constraints(limit=1000)
            for _ in type_.leaves(limit=1000):
                pass
        except rtti.Error:
            pass


def load_and_ask(data):
    try:
        ask_everything(rtti.load(data))
    except rtti.Error:
        pass


def test_damaged_files_are_loaded_or_refused():
    choose = random.Random(1)
    for path in (EXAMPLES / "svkinds_slang.typ", EXAMPLES / "vhkinds_rti.typ"):
        whole = path.read_bytes()
        for _ in range(150):
            damaged = bytearray(whole)
            for _ in range(choose.randint(1, 8)):
                damaged[choose.randrange(len(damaged))] = choose.choice((0, 1, 0x7F, 0xFF))
            load_and_ask(bytes(damaged))


def test_the_inputs_of_the_fuzz_targets_are_loaded_or_refused():
    paths = sorted((CORPUS / "typefile").glob("*"))
    assert paths
    for path in paths:
        load_and_ask(path.read_bytes())


@pytest.mark.parametrize("made", CLASSES)
def test_no_object_is_made_from_nothing(made):
    for make in (made, lambda: made.__new__(made), lambda: object.__new__(made)):
        with pytest.raises(TypeError):
            make()


@pytest.mark.parametrize("made", CLASSES)
def test_no_class_is_extended_or_changed(made):
    if made is not rtti.Type:
        with pytest.raises(TypeError):
            type("Derived", (made,), {})
    with pytest.raises(TypeError):
        made.name = None


def test_no_object_takes_the_class_of_another():
    table = rtti.load(EXAMPLES / "svkinds_slang.typ")
    with pytest.raises(TypeError):
        table[33].__class__ = rtti.Queue
    with pytest.raises(TypeError):
        rtti.Record.members.fget(table[0])
    with pytest.raises(TypeError):
        rtti.Record.members.fget(table)


def test_objects_are_not_copied():
    table = rtti.load(EXAMPLES / "svkinds_slang.typ")
    for value in (table, table[33]):
        with pytest.raises(TypeError):
            copy.copy(value)
        with pytest.raises(TypeError):
            pickle.dumps(value)


class Again:
    """Asks an iterator for more while it is being collected."""

    def __init__(self, iterator):
        self.iterator = iterator
        self.itself = self

    def __del__(self):
        next(self.iterator, None)


def test_an_iterator_is_asked_again_while_it_answers():
    leaves = rtti.load(EXAMPLES / "svkinds_slang.typ")["kinds_pkg::ps_t"].leaves()
    threshold = gc.get_threshold()
    gc.set_threshold(1)
    try:
        for _ in range(20):
            Again(leaves)
            next(leaves, None)
    finally:
        gc.set_threshold(*threshold)


def test_threads_ask_one_table():
    table = rtti.load(EXAMPLES / "ibex_slang.typ")
    other = rtti.load(EXAMPLES / "ibex_vltree.typ")
    failures = []

    def ask(act):
        try:
            for _ in range(5):
                act()
        except Exception as error:
            failures.append(error)

    acts = [lambda: ask_everything(table), lambda: rtti.diff(table, other),
            lambda: rtti.build(table), lambda: rtti.load(EXAMPLES / "ibex_slang.typ")]
    threads = [threading.Thread(target=ask, args=(act,)) for act in acts]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert not failures


def test_deep_types_need_no_deep_stack():
    chain = [{"id": 0, "kind": "string", "name": "s"}]
    chain += [{"id": i, "kind": "typedef", "name": "", "dataType": i - 1}
              for i in range(1, 100_000)]
    table = rtti.load(rtti.build(chain))
    last = table[99_999]
    assert last.encoding == "2-State" and last.dimensions == ()
    assert len(list(last.leaves())) == 1
    assert rtti.load(rtti.build([last]))[99_999].kind == "string"
