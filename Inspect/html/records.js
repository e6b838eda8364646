"use strict";

// The types of the page: their records as the type file has them, and what their fields mean. The
// layouts of the kinds, with the widths of fields, and the markers come with the page's data; they
// are those of the library.

/** Bytes of a name that are shown; the rest is said to be there. */
const LONGEST_TEXT = 1024;

/** The same where another type refers to it. */
const LONGEST_HEAD_NAME = 256;

/** The bytes of a layout's fields up to the first one of a form, or of all. */
function widthBefore(layout, form) {
    let width = 0;
    for (const entry of layout) {
        if (entry.form === form)
            break;
        width += entry.width;
    }
    return width;
}

/** Copies what atob has made, a byte a character. */
function copyBytes(text, bytes, at) {
    for (let i = 0; i < text.length; ++i)
        bytes[at + i] = text.charCodeAt(i);
}

/** Fulfilled once all of a document is there. The script runs before that. */
function wholeDocument(root) {
    return new Promise((resolve) => {
        if (root.readyState === "loading")
            root.addEventListener("DOMContentLoaded", resolve);
        else
            resolve();
    });
}

/** The records of all types, one behind the other, and what the file says of itself. */
class Records {
    constructor(root) {
        this.file = JSON.parse(root.querySelector("script.file").textContent);
        this.format = this.file.format;
        const { head } = this.format;
        this.kindAt = widthBefore(head, "kind"); // In a record.
        this.nameAt = widthBefore(head, "name");
        this.headEnd = head.findIndex((entry) => entry.form === "name");
        this.count = this.file.count;
        this.starts = new Float64Array(this.count + 1);
        this.addresses = new Array(this.count);
        this.shapes = new Map(); // What types without names are, by id: alone, and behind their kind.
        this.packed = new Map(); // What packed values consist of, by id.
        this.takeRecords(Array.from(root.querySelectorAll("script.records")));
        this.details = wholeDocument(root).then(() => root.querySelectorAll("script.details"));
        this.takenDetails = new Map(); // By the number of the piece: promises.
        this.readKinds();
    }

    /** Decodes the pieces and lets go of their text. */
    takeRecords(scripts) {
        const pieces = scripts.map((script) => {
            const piece = JSON.parse(script.textContent);
            script.remove();
            for (const name of ["shapes", "packed"]) {
                for (const [id, value] of Object.entries(piece[name]))
                    this[name].set(Number(id), value);
            }
            return { first: piece.first, sizes: piece.sizes, addresses: piece.addresses,
                     bytes: atob(piece.bytes) };
        });
        this.bytes = new Uint8Array(pieces.reduce((sum, piece) => sum + piece.bytes.length, 0));
        this.view = new DataView(this.bytes.buffer);
        let at = 0;
        for (const piece of pieces) {
            let start = at;
            for (let i = 0; i < piece.sizes.length; ++i) {
                this.starts[piece.first + i] = start;
                start += piece.sizes[i];
                this.addresses[piece.first + i] = piece.addresses[i];
            }
            copyBytes(piece.bytes, this.bytes, at);
            at = start;
        }
        this.starts[this.count] = at;
    }

    readKinds() {
        const { kinds, details, head, bodies } = this.format;
        const behindName = widthBefore(head.slice(this.headEnd + 1));
        const fields = new Map(); // Of the kinds that have forms: the form's place behind the name.
        for (const code of Object.keys(details)) {
            const at = 1 + behindName + widthBefore(bodies[code], "named");
            const { width } = bodies[code].find((entry) => entry.form === "named");
            fields.set(Number(code), { at, end: at + width, ...details[code] });
        }
        this.kinds = [];
        for (let id = 0; id < this.count; ++id) {
            const start = this.starts[id];
            const end = this.starts[id + 1];
            if (end - start < this.nameAt) {
                this.kinds.push("no record");
                continue;
            }
            const code = this.view.getUint32(start + this.kindAt, true);
            const field = fields.get(code);
            let kind = kinds[code] || "type of unknown class";
            if (field !== undefined) {
                const zero = this.endOfName(start + this.nameAt, end);
                if (zero + field.end <= end)
                    kind = field.kinds[this.view.getUint32(zero + field.at, true) - field.first] ||
                        field.kinds[0];
            }
            this.kinds.push(kind);
        }
    }

    nameOf(id) {
        const begin = this.starts[id] + this.nameAt;
        const end = this.starts[id + 1];
        return begin > end ? "" : this.textAt(begin, this.endOfName(begin, end));
    }

    endOfName(begin, end) {
        let at = begin;
        while (at < end && this.bytes[at] !== 0)
            ++at;
        return at;
    }

    textAt(begin, end) {
        let text = "";
        for (let at = begin; at < end; ++at) {
            const byte = this.bytes[at];
            if (byte < 0x20 || byte >= 0x7F)
                return escaped(this.bytes.subarray(begin, end), false);
            text += String.fromCharCode(byte);
        }
        return text;
    }

    isNameless(id) {
        return this.shapes.has(id) || this.nameOf(id) === "";
    }

    /** What a list shows for a type: its name, else what it is. */
    labelOf(id) {
        const [shape] = this.shapes.get(id) || [];
        return shape || this.nameOf(id) || this.kinds[id];
    }

    size(id) {
        return this.starts[id + 1] - this.starts[id];
    }

    /** What is known of a type beside its record; null where the record builds no type. */
    async detailsOf(id) {
        const number = Math.floor(id / this.file.chunk);
        if (!this.takenDetails.has(number))
            this.takenDetails.set(number, this.takeDetails(number));
        const found = (await this.takenDetails.get(number))[id % this.file.chunk];
        if (found === null)
            return null;
        const [encoding, valueSize, declaration, rangeCount, isWalkWhole, numbers] = found;
        const runs = numbers.map(([count, ...range]) =>
            ({ count, text: this.rangeText(...range) }));
        return { encoding: this.file.encodings[encoding] || String(encoding), valueSize,
                 declaration, rangeCount, isWalkWhole, runs };
    }

    async takeDetails(number) {
        const text = atob((await this.details)[number].textContent);
        const bytes = new Uint8Array(text.length);
        copyBytes(text, bytes, 0);
        const whole = new Blob([bytes]).stream().pipeThrough(new DecompressionStream("deflate"));
        return new Response(whole).json();
    }

    rangeText(...range) {
        return rangeText(this.format.directions, ...range);
    }

    /** The words for a type where another one refers to it. */
    describe(id) {
        if (id === this.format.noTypeId)
            return "none";
        if (id >= this.count)
            return "there is no such type";
        if (this.size(id) === 0)
            return "its record is not in the storage";
        const begin = this.starts[id] + this.nameAt;
        const end = Math.min(this.endOfName(begin, this.starts[id + 1]), begin + LONGEST_HEAD_NAME);
        const name = begin === end ? "" : quoted(this.bytes.subarray(begin, end));
        const [, shape] = this.shapes.get(id) || [];
        return [this.kinds[id], name, shape].filter(Boolean).join(" ");
    }

    /** The fields of a record, as the loader reads them. */
    fieldsOf(id) {
        const fields = [];
        new RecordReader(this, id, (raw) => fields.push(new Field(this, raw))).read();
        return fields;
    }

    /** The references of a type in the order of its record: field, and the type's id. */
    linksOf(id) {
        const links = [];
        let name = null;
        new RecordReader(this, id, (raw) => {
            if (raw.entry.form === "name")
                name = raw;
            if (raw.entry.form !== "typeId" || raw.state !== "whole")
                return;
            const target = this.view.getUint32(raw.at, true);
            if (target !== this.format.noTypeId)
                links.push({ raw, target, owner: raw.list === null ? null : name });
        }).read();
        return links;
    }

    /** For each type those that refer to it, each once; made when it is first asked for. */
    referrers(id) {
        if (!this.referrerStarts)
            this.collectReferrers();
        return this.referrerIds.subarray(this.referrerStarts[id], this.referrerStarts[id + 1]);
    }

    collectReferrers() {
        const pairs = [];
        const starts = new Uint32Array(this.count + 1);
        const lastSource = new Int32Array(this.count).fill(-1);
        for (let id = 0; id < this.count; ++id) {
            new RecordReader(this, id, (raw) => {
                if (raw.entry.form !== "typeId" || raw.state !== "whole")
                    return;
                const target = this.view.getUint32(raw.at, true);
                if (target >= this.count || lastSource[target] === id)
                    return;
                lastSource[target] = id;
                ++starts[target + 1];
                pairs.push(target, id);
            }).read();
        }
        for (let i = 0; i < this.count; ++i)
            starts[i + 1] += starts[i];
        const next = starts.slice();
        this.referrerIds = new Uint32Array(pairs.length / 2);
        for (let i = 0; i < pairs.length; i += 2)
            this.referrerIds[next[pairs[i]]++] = pairs[i + 1];
        this.referrerStarts = starts;
    }
}

/**
 * Walks through the bytes of a record along the layouts, and gives each field as it stands: its
 * entry in the layout, the list that it is in, and where its bytes are. Nothing is made of them.
 */
class RecordReader {
    constructor(records, id, take) {
        this.records = records;
        this.id = id;
        this.take = take;
        this.at = records.starts[id];
        this.end = records.starts[id + 1];
        this.list = null; // The list that is being read, and the index of its entry.
        this.index = 0;
        this.count = 0; // What fields said of those behind them.
        this.valueSize = 0;
    }

    read() {
        const { format, kindAt, nameAt, headEnd, view } = this.records;
        const begin = this.at;
        if (this.end === begin)
            return;
        const whole = this.end;
        this.end = Math.min(begin + nameAt, whole);
        this.readLayout(format.head.slice(0, headEnd));
        this.end = whole;
        const isFramed = whole - begin >= nameAt;
        const body = isFramed ? format.bodies[view.getUint32(begin + kindAt, true)] : undefined;
        if (body !== undefined) {
            this.readLayout(format.head.slice(headEnd));
            this.readLayout(body);
        }
        if (this.at < this.end)
            this.give({ name: "left-over bytes", form: "endOfList" }, this.end - this.at, "unread");
    }

    readLayout(layout) {
        for (let i = 0; i < layout.length; ++i) {
            if (layout[i].form === "list")
                i = this.readList(layout, i);
            else
                this.readField(layout[i]);
        }
    }

    /** The answer is the index of the list's end. */
    readList(layout, first) {
        const last = layout.findIndex((entry, i) => i > first && entry.form === "endOfList");
        const entries = layout.slice(first + 1, last);
        const count = this.count;
        for (let i = 0; i < count; ++i) {
            if (this.at === this.end) {
                this.giveMissingEntries(layout[first], i, count);
                break;
            }
            this.list = layout[first].name;
            this.index = i;
            this.readLayout(entries);
            this.list = null;
        }
        return last;
    }

    readField(entry) {
        switch (entry.form) {
        case "name": return this.readName(entry);
        case "range": return this.readRange(entry, null);
        case "ranges": return this.readRanges(entry);
        case "value": return this.readValue(entry);
        default: return this.readFixed(entry);
        }
    }

    readName(entry) {
        if (this.at === this.end)
            return this.give(entry, 0, "missing");
        const zero = this.records.endOfName(this.at, this.end);
        const isEnded = zero < this.end;
        return this.give(entry, zero - this.at + (isEnded ? 1 : 0), isEnded ? "whole" : "partial");
    }

    readRange(entry, range) {
        if (this.end - this.at >= entry.width)
            return this.give(entry, entry.width, "whole", { range });
        for (const part of entry.parts)
            this.readFixed({ ...part, name: entry.name }, { range, part: part.name });
    }

    readRanges(entry) {
        this.readFixed(entry.count);
        const count = this.count;
        for (let i = 0; i < count; ++i) {
            if (this.at === this.end)
                return this.giveMissingEntries(entry, i, count);
            this.readRange(entry.item, i);
        }
    }

    readValue(entry) {
        const size = Math.min(this.valueSize, this.end - this.at);
        if (this.valueSize !== 0)
            this.give(entry, size,
                      size === 0 ? "missing" : size < this.valueSize ? "partial" : "whole",
                      { valueSize: this.valueSize });
    }

    readFixed(entry, place) {
        const { width } = entry;
        const isWhole = this.end - this.at >= width;
        const number = isWhole ? this.records.view.getInt32(this.at, true) : 0;
        if (entry.form === "count")
            this.count = Math.max(number, 0);
        if (entry.form === "valueSize")
            this.valueSize = Math.max(number, 0);
        const left = this.end - this.at;
        this.give(entry, isWhole ? width : left,
                  isWhole ? "whole" : left === 0 ? "missing" : "partial", { ...place, width });
    }

    /** All of a list that is not there: the count may claim any number. */
    giveMissingEntries(entry, first, count) {
        this.give({ name: entry.name, form: "list" }, 0, "missing", { first, count });
    }

    give(entry, size, state, place) {
        this.take({ id: this.id, entry, at: this.at, size, state, list: this.list,
                    index: this.index, ...place });
        this.at += size;
    }
}

/** A field with its name, value and meaning as people read them. */
class Field {
    constructor(records, raw) {
        this.raw = raw;
        this.state = raw.state;
        this.size = raw.size;
        this.at = raw.at - records.starts[raw.id];
        this.name = Field.nameOf(raw);
        this.value = "";
        this.meaning = "";
        this.typeId = records.format.noTypeId;
        this.records = records;
        this.view = records.view;
        this.end = this.isRecordCut()
            ? records.size(raw.id) === records.file.mostRecordBytes ? "the page has no more of it"
                                                         : "the storage ends here"
            : null;
        if (raw.entry.form === "name" && raw.size !== 0)
            this.readName();
        else if (raw.entry.form === "value" && raw.size !== 0)
            this.readValue();
        else if (raw.state === "whole")
            this.readWhole();
        else if (raw.state === "unread")
            this.meaning = `${countOf(raw.size, "byte")} that are not read`;
        else
            this.readMissing();
    }

    static nameOf(raw) {
        let name = raw.entry.name;
        if (raw.first !== undefined) // Entries that are not there.
            name += `[${raw.first}]` + (raw.count - raw.first > 1 ? ` to [${raw.count - 1}]` : "");
        if (raw.range !== undefined && raw.range !== null)
            name += `[${raw.range}]`;
        if (raw.part !== undefined)
            name += "." + raw.part;
        if (raw.list === null)
            return name;
        const entry = `${raw.list}[${raw.index}]`;
        return name === "" ? entry : `${entry}.${name}`;
    }

    /** Whether the record says that there is more of it than the page has. */
    isRecordCut() {
        const { starts } = this.records;
        const start = starts[this.raw.id];
        const size = starts[this.raw.id + 1] - start;
        const [claimed] = this.records.format.head;
        return size >= claimed.width && this.view.getInt32(start, true) > size;
    }

    readName() {
        const isEnded = this.state === "whole";
        const length = this.size - (isEnded ? 1 : 0);
        const shown = Math.min(length, LONGEST_TEXT);
        this.value = quoted(this.records.bytes.subarray(this.raw.at, this.raw.at + shown));
        const notes = [];
        if (shown < length)
            notes.push(`the first ${shown} of ${countOf(length, "byte")}`);
        if (!isEnded)
            notes.push("no zero byte: " +
                       (this.end || "ends with the record"));
        this.meaning = notes.join("; ");
    }

    /** Up to 8 bytes are shown as a number. */
    readValue() {
        const { valueSize } = this.raw;
        if (this.size < valueSize) {
            this.meaning = `${this.size} of ${countOf(valueSize, "byte")}, the others are read as 0`;
        } else if (this.size <= 8) {
            let number = 0n;
            for (let i = this.size - 1; i >= 0; --i)
                number = (number << 8n) | BigInt(this.records.bytes[this.raw.at + i]);
            this.value = String(number);
            this.meaning = "as a little-endian number";
        } else {
            this.meaning = countOf(this.size, "byte");
        }
    }

    readWhole() {
        const { entry, at } = this.raw;
        const { directions } = this.records.format;
        switch (entry.form) {
        case "real": this.value = realText(this.view.getFloat64(at, true)); return;
        case "direction": {
            const direction = this.view.getFloat64(at, true);
            this.value = realText(direction);
            this.meaning = directionMeaning(directions, direction);
            return;
        }
        case "long": this.value = String(this.view.getBigInt64(at, true)); return;
        case "range": {
            let next = at;
            const numbers = entry.parts.map((part) => {
                const number = this.view.getInt32(next, true);
                next += part.width;
                return number;
            });
            this.value = this.records.rangeText(...numbers);
            const isOpen = numbers[numbers.length - 1] === directions.open;
            this.meaning = isOpen ? "filled in by an enclosing type" : "";
            return;
        }
        default: this.readWord(entry, this.view.getUint32(at, true)); return;
        }
    }

    readWord(entry, word) {
        const number = word | 0;
        const { records } = this;
        this.value = String(number);
        switch (entry.form) {
        case "recordSize":
            if (number < records.nameAt)
                this.meaning = `less than the ${records.nameAt} bytes of size and kind`;
            else if (this.end !== null)
                this.meaning = `${this.end}, after ${countOf(records.size(this.raw.id), "byte")}`;
            return;
        case "kind":
            this.value = "0x" + word.toString(16);
            this.meaning = records.format.words[word] || "type of unknown class";
            return;
        case "flags":
            this.value = "0x" + word.toString(16);
            this.meaning = word & records.format.unpaddedByteFlag ? "values in unpadded bytes" : "";
            return;
        case "named":
            if (entry.first !== 0)
                this.value = "0x" + word.toString(16);
            this.meaning = entry.names[word - entry.first] || "unknown";
            return;
        case "flavour":
            this.meaning = number > entry.last ? `above ${entry.last}: read as 0` : "";
            return;
        case "typeId":
            this.value = String(word);
            this.typeId = word;
            this.meaning = records.describe(word);
            return;
        case "svTypeId": this.meaning = records.format.svTypeIds[number] || ""; return;
        case "boolean":
            this.value = String(word);
            this.meaning = word !== 0 ? "true" : "false";
            return;
        case "count": this.meaning = number < 0 ? "negative: nothing is read" : ""; return;
        case "valueSize": this.meaning = number < 0 ? "negative" : "bytes of a value"; return;
        case "unsigned": this.value = String(word); return;
        default: return;
        }
    }

    readMissing() {
        const { entry, width, first, count } = this.raw;
        this.value = "(missing)";
        const entries = count - first > 1 ? `${count - first} entries, ` : "";
        const isEmpty = entry.form === "name" || entry.form === "list";
        const instead = isEmpty ? `${entries}read as empty` : `read as ${entry.missing}`;
        this.meaning = this.end || instead;
        if (this.size !== 0)
            this.meaning = `${this.size} of ${countOf(width, "byte")}: ${this.meaning}`;
    }
}
