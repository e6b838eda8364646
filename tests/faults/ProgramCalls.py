"""The calls of the program that are made to fail: what they read, what they write, and what has to be
there afterwards."""

import os
import pathlib
import subprocess

OLD = b"what was there before\n"


class Call:
    """A call of the program in a folder of its own. `output` is the file that it writes, or None if it
    writes to standard output."""

    def __init__(self, words, folder, output=None):
        self.words = [str(word) for word in words]
        self.folder = pathlib.Path(folder)
        self.output = self.folder / output if output else None
        if self.output:
            self.words += ["-o", str(self.output)]
        self.expected = OLD
        done = self.run()
        if done.returncode not in (0, 1):
            raise RuntimeError(f"{' '.join(self.words)}: {done.stderr.decode()}")
        self.status = done.returncode
        self.text = done.stdout
        self.expected = self.written()

    def reset(self):
        """Makes the output the old file, and removes all else that a run may have left."""
        for path in self.folder.iterdir():
            path.unlink()
        if self.output:
            self.output.write_bytes(OLD)

    def run(self, before=()):
        """Runs the call, as arguments of the command `before`, beside an old output."""
        self.reset()
        return subprocess.run([*before, *self.words], capture_output=True, check=False,
                              stdin=subprocess.DEVNULL)

    def written(self):
        """The bytes of the output; none if it is not there."""
        if not self.output:
            return OLD
        return self.output.read_bytes() if self.output.exists() else b""

    def has_begun_to_write(self):
        return bool(self.left_over()) or self.written() != OLD

    def left_over(self):
        """The names of files beside the output."""
        return [path.name for path in self.folder.iterdir() if path != self.output]

    def name(self):
        return os.path.basename(self.words[0]) + " " + self.words[1]


def calls(rtti, source, folder, image_size):
    """One call for each way in which the program reads and writes; one copies `image_size` bytes."""
    examples = source / "examples"
    image = folder / "image"
    image.write_bytes(bytes(image_size))
    kinds = source / "tests/data/every-kind.json"
    made = [
        ([rtti, "build", kinds], "types.typ"),
        ([rtti, "build", kinds, "--image", image, "--offset", "70000"], "types.typ"),
        ([rtti, "import", source / "tests/data/import/ghdl/kinds-6.0.ghw"], "types.typ"),
        ([rtti, "import", examples / "import/t_struct_nest.tree"], "types.typ"),
        ([rtti, "html", examples / "typefiles/ieee_ghw.typ"], "types.html"),
        ([rtti, "diff", examples / "typefiles/ieee_ghw.typ",
          examples / "typefiles/ieee_rti.typ"], None),
        ([rtti, "dump", examples / "typefiles/svkinds_slang.typ"], None),
        ([rtti, "verify", examples / "typefiles/svkinds_slang.typ"], None),
    ]
    for number, (words, output) in enumerate(made):
        room = folder / str(number)
        room.mkdir()
        yield Call(words, room, output)
