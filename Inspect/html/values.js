"use strict";

// Values of packed types taken apart, by the rules of `rtti translate --filter`: what is typed in,
// and what each field has of it. Bits are texts of the digits 0, 1, x and z, the most significant
// first. Where fields lie and what literals mean comes with the page's data.

/** What may stand in front of digits, with the bits of each one. */
const PREFIXES = { "0x": 4, "$": 4, "0b": 1, "%": 1 };

/** The four bits of hexadecimal digits; `x` and `z` are four such bits. */
const NIBBLES = new Map(Array.from("0123456789abcdefxz", (digit) => {
    const number = parseInt(digit, 16);
    return [digit, Number.isNaN(number) ? digit.repeat(4) : number.toString(2).padStart(4, "0")];
}));

/** The bits of a number as it is typed in, or what is wrong with it: an object with one of the two. */
function readBits(text, width) {
    const [, prefix, typed] = /^(0x|\$|0b|%)?(.*)$/i.exec(text.trim().toLowerCase());
    const digits = typed.startsWith("_") ? typed : typed.replaceAll("_", "");
    const wrong = Array.from(digits).find((digit) => !NIBBLES.has(digit));
    if (wrong !== undefined)
        return { fault: `"${wrong}" is no digit.` };
    const hexLength = Math.ceil(width / 4);
    const fits = (bits, most) => prefix === undefined
        ? digits.length === most
        : PREFIXES[prefix] === bits && digits !== "" && digits.length <= most;
    if (fits(1, width)) {
        const other = Array.from(digits).find((digit) => !"01xz".includes(digit));
        return other === undefined ? { bits: digits.padStart(width, "0") }
                                   : { fault: `"${other}" is no binary digit.` };
    }
    if (!fits(4, hexLength))
        return { fault: `${counted(digits.length, "digit")}: a value has ${digitsOf(width)}.` };
    const bits = Array.from(digits, (digit) => NIBBLES.get(digit)).join("").padStart(width, "0");
    const extra = bits.length - width;
    return bits.slice(0, extra).includes("1") ? { fault: `A value has ${counted(width, "bit")}.` }
                                              : { bits: bits.slice(extra) };
}

/** "6 binary or 2 hexadecimal digits". */
function digitsOf(width) {
    const hexLength = Math.ceil(width / 4);
    return `${width.toLocaleString("en")} binary or ${counted(hexLength, "hexadecimal digit")}`;
}

/** Hexadecimal with 0x; binary with 0b where unknown bits do not fill a digit. */
function valueText(bits) {
    if (bits.length === 1)
        return bits;
    const fill = bits[0] === "1" ? "0" : bits[0];
    const nibbles = bits.padStart(4 * Math.ceil(bits.length / 4), fill).match(/..../g);
    const digits = nibbles.map((nibble) => /^[01]*$/.test(nibble) ? parseInt(nibble, 2).toString(16)
                                         : NIBBLES.get(nibble[0]) === nibble ? nibble[0] : null);
    return digits.includes(null) ? `0b${bits}` : `0x${digits.join("")}`;
}

/** An entry that the record lacks. */
const NO_ENTRY = { name: new Uint8Array(), typeId: -1 };

/** Nothing but a name that a path can have as it is. */
const PLAIN_NAME = /^[\w$:]+$/;

/** What values of the file's types consist of. */
class PackedTypes {
    constructor(records) {
        this.records = records;
        this.members = new Map(); // By id.
    }

    /** What the page's data says of values of a type: undefined if they are not taken apart. */
    formOf(id) {
        return this.records.packed.get(id);
    }

    widthOf(id) {
        let width = 1;
        for (let form = this.formOf(id);; form = this.formOf(form.of)) {
            if (form.of === undefined)
                return width * form.width;
            width *= lengthOf(form.ranges);
        }
    }

    /** The entries of a record's list: the bytes of the name, and the type's id. */
    entriesOf(id) {
        const { bytes, view } = this.records;
        const entries = [];
        new RecordReader(this.records, id, (raw) => {
            if (raw.list === null)
                return;
            entries[raw.index] = entries[raw.index] || { ...NO_ENTRY };
            const entry = entries[raw.index];
            if (raw.entry.form === "name")
                entry.name = bytes.subarray(raw.at, this.records.endOfName(raw.at, raw.at + raw.size));
            else if (raw.entry.form === "typeId" && raw.state === "whole")
                entry.typeId = view.getUint32(raw.at, true);
        }).read();
        return entries;
    }

    /** The members of a struct or union that have a value: name, type's id, and offset in there. */
    membersOf(id) {
        if (!this.members.has(id)) {
            const entries = this.entriesOf(id);
            this.members.set(id, this.formOf(id).offsets.map((offset, index) => {
                const { name, typeId } = entries[index] || NO_ENTRY;
                const text = escaped(name, false);
                return { name: PLAIN_NAME.test(text) ? text : quoted(name), id: typeId, offset };
            }).filter(({ offset }) => offset !== null));
        }
        return this.members.get(id);
    }

    /** The parts of a part: members, or elements from the left on. Of anything else, null. */
    partsOf(part) {
        const form = this.formOf(part.id);
        if (form.offsets !== undefined)
            return this.membersOf(part.id).map(({ name, id, offset }) => ({
                name: part.name === "" ? name : `${part.name}.${name}`, id,
                offset: part.offset + offset }));
        if (form.of === undefined)
            return null;
        const count = lengthOf(form.ranges);
        const width = this.widthOf(form.of);
        return Array.from({ length: count }, (_, position) => ({
            name: part.name + indicesOf(form.ranges, position), id: form.of,
            offset: part.offset + (count - 1 - position) * width }));
    }

    /** The number of fields in a value; `Infinity` if they are more than the page takes apart. */
    fieldCount(id) {
        const most = this.records.file.mostFields;
        const pending = [[id, 1]];
        let count = 0;
        let empty = 0; // Unions without any value but their tag.
        while (pending.length > 0 && count + empty <= most) {
            const [typeId, times] = pending.pop();
            const form = this.formOf(typeId);
            if (form === undefined)
                return Infinity; // Its record is too long for the page.
            const members = form.offsets === undefined ? [] : this.membersOf(typeId);
            for (const member of members)
                pending.push([member.id, times]);
            if (form.of !== undefined)
                pending.push([form.of, times * lengthOf(form.ranges)]);
            else if (form.offsets === undefined)
                count += times;
            else if (members.length === 0)
                empty += times;
        }
        return count + empty <= most ? count : Infinity;
    }

    /** The fields of a value, one after the other: name, place in bits, and the type's id. */
    *fieldsOf(id) {
        const pending = [{ name: "", id, offset: 0 }];
        while (pending.length > 0) {
            const part = pending.pop();
            const parts = this.partsOf(part);
            if (parts === null)
                yield { ...part, width: this.formOf(part.id).width };
            else
                for (let i = parts.length; i-- > 0;)
                    pending.push(parts[i]);
        }
    }

    /** Of an enumeration the names of its literals by their bits, else null. */
    literalsOf(id) {
        const { width, values } = this.formOf(id);
        if (values === undefined)
            return null;
        const literals = new Map();
        this.entriesOf(id).forEach(({ name }, position) => {
            const value = values === null ? `$${position.toString(16)}` : values[position];
            const { bits } = readBits(value, width);
            if (!literals.has(bits))
                literals.set(bits, escaped(name, false));
        });
        return literals;
    }
}

/** The number of an array's elements. */
function lengthOf(ranges) {
    return ranges.reduce((length, [left, right]) => length * (Math.abs(left - right) + 1), 1);
}

/** The indices of an array's element, the first of which has the left bounds. */
function indicesOf(ranges, position) {
    let text = "";
    let rest = position;
    for (let i = ranges.length; i-- > 0;) {
        const [left, right] = ranges[i];
        const length = Math.abs(left - right) + 1;
        text = `[${left + (left <= right ? 1 : -1) * (rest % length)}]${text}`;
        rest = Math.floor(rest / length);
    }
    return text;
}

/** A field for a value of a type, and below it the fields of that value. */
class ValueView {
    /** `texts` keeps what was typed in, by the type's id. */
    constructor(types, id, texts) {
        this.types = types;
        this.id = id;
        this.texts = texts;
        this.count = types.fieldCount(id);
        this.literals = new Map(); // Of enumerations, by id.
        this.section = section("Value", "value");
        if (this.count === Infinity)
            this.section.append(element("p", { class: "hint" },
                                        "It has too many fields for the page."));
        else
            this.build(types.widthOf(id));
    }

    build(width) {
        this.width = width;
        const described = "value-hint value-state";
        this.input = element("input", { type: "text", id: "value", autocomplete: "off",
                                        spellcheck: "false", "aria-describedby": described });
        this.state = element("p", { class: "state", id: "value-state", role: "status" });
        this.place = element("div");
        this.input.value = this.texts.get(this.id) || "";
        this.input.addEventListener("input", () => this.show());
        this.input.addEventListener("keydown", (event) => this.onKey(event));
        this.section.append(
            element("label", { for: "value" }, "Binary or hexadecimal"), this.input,
            element("p", { class: "hint", id: "value-hint" },
                    `${digitsOf(width)}, fewer behind 0b or 0x; x and z are unknown bits.`),
            this.state, this.place);
        this.show();
    }

    onKey(event) {
        if (event.key !== "Escape" || this.input.value === "")
            return;
        this.input.value = "";
        this.show();
        event.preventDefault();
    }

    show() {
        const text = this.input.value;
        this.texts.set(this.id, text);
        const isEmpty = text.trim() === "";
        const { bits, fault } = isEmpty ? {} : readBits(text, this.width);
        this.input.setAttribute("aria-invalid", fault !== undefined);
        this.place.replaceChildren();
        if (bits !== undefined)
            this.showFields(bits);
        else
            this.state.textContent = fault || "";
    }

    showFields(bits) {
        const body = element("tbody");
        const table = element("table", { class: "fields", "aria-label": "Fields of the value" });
        const head = element("tr");
        for (const title of ["Bits", "Field", "Value", "Literal"])
            head.append(element("th", { scope: "col" }, title));
        table.append(element("thead", {}, head), body);
        const scroller = element("div", { class: "scroller" }, table);
        this.place.append(scroller);
        const fields = this.types.fieldsOf(this.id);
        fillSlowly(body, this.count, () => this.rowOf(fields.next().value, bits), scroller);
        const [row] = body.children;
        this.state.textContent = this.count > 1 ? counted(this.count, "field")
                                                : Array.from(row.children, (cell) => cell.textContent)
                                                      .slice(1).filter(Boolean).join(" ");
    }

    rowOf(field, bits) {
        const { name, id, offset, width } = field;
        const end = this.width - offset;
        const value = bits.slice(end - width, end);
        if (!this.literals.has(id))
            this.literals.set(id, this.types.literalsOf(id));
        const literals = this.literals.get(id);
        const isOther = literals !== null && !literals.has(value);
        const place = width === 1 ? String(offset) : `${offset + width - 1}:${offset}`;
        return element("tr", {},
                       element("td", { class: "offset" }, place),
                       element("th", { scope: "row" }, name),
                       element("td", { class: "value" }, valueText(value)),
                       element("td", { class: isOther ? "meaning" : "literal" },
                               isOther ? "none of the literals"
                                       : literals === null ? "" : literals.get(value)));
    }
}
