"use strict";

// What the page shows of the file and of one type.

/** So many links, ranges and fields are shown before the rest is asked for. */
const MOST_AT_FIRST = 200;

/** Words that the declarations' languages keep for themselves, as far as declarations use them. */
const KEYWORDS = new Set(
    ("access alias all array bit body byte chandle class const downto end endclass enum event " +
     "extends file int integer is logic longint new null of open packed physical range real " +
     "realtime record reg shortint shortreal signed string struct subtype tagged time to type " +
     "typedef union units unsigned virtual void wire").split(" "));

/** A comment, a string or character, a number, a name that is escaped, or a word. */
const TOKEN = new RegExp([/(--[^\n]*|\/\/[^\n]*|\/\*[\s\S]*?\*\/)/, /("(?:[^"\\]|\\.)*"|'[^']')/,
                          /\b(\d[\w.#']*)/, /\\(?:\S+|[^\\]*\\)/, /([A-Za-z_]\w*)/]
    .map((part) => part.source).join("|"), "g");

/** An element with attributes and children; text is never taken for HTML. */
function element(name, attributes = {}, ...children) {
    const made = document.createElement(name);
    for (const [key, value] of Object.entries(attributes))
        made.setAttribute(key, value);
    made.append(...children);
    return made;
}

/** A label in two parts, so that where a name is too long what is lost is its scope. */
function labelParts(records, id) {
    const label = records.labelOf(id);
    const own = label.split("#", 1)[0];
    const at = records.isNameless(id) ? -1 : own.lastIndexOf("::");
    const scope = at < 0 ? "" : label.slice(0, at + 2);
    return [element("span", { class: "scope" }, scope),
            element("span", { class: "own" }, label.slice(scope.length))];
}

function counted(number, what) {
    return countOf(number, what, number.toLocaleString("en"));
}

function typeHash(id) {
    return `#type-${id}`;
}

/** A declaration with its comments, strings, numbers and keywords set off. */
function highlighted(text) {
    const code = element("code");
    let done = 0;
    for (const match of text.matchAll(TOKEN)) {
        const [token, comment, string, number, word] = match;
        const kind = comment ? "comment" : string ? "string" : number ? "number"
                   : KEYWORDS.has(word) ? "keyword" : null;
        if (kind === null)
            continue;
        code.append(text.slice(done, match.index), element("span", { class: kind }, token));
        done = match.index + token.length;
    }
    code.append(text.slice(done));
    return code;
}

/**
 * Fills `list` with so many items, each made when its turn comes: the later ones are asked for by a
 * button behind `box`, which is in the list's section.
 */
function fillSlowly(list, count, makeItem, box = list) {
    const fill = (first, end) => {
        for (let i = first; i < end; ++i)
            list.append(makeItem(i));
    };
    fill(0, Math.min(count, MOST_AT_FIRST));
    if (count <= MOST_AT_FIRST)
        return;
    const more = element("button", { type: "button", class: "more" },
                         `Show all ${count.toLocaleString("en")}`);
    more.addEventListener("click", () => {
        more.remove();
        fill(MOST_AT_FIRST, count);
    });
    box.after(more);
}

/** The panel beside the list. */
class DetailView {
    constructor(records, panel, filterKind) {
        this.records = records;
        this.panel = panel;
        this.filterKind = filterKind;
        this.packedTypes = new PackedTypes(records);
        this.typedValues = new Map(); // By the type's id.
        this.record = null;
        this.wanted = null;
        this.shown = null;
        this.isWide = matchMedia("(min-width: 1500px)");
        this.isWide.addEventListener("change", () => this.record?.showRows(this.rowSize()));
    }

    rowSize() {
        return this.isWide.matches ? 16 : 8;
    }

    showInstead(...children) {
        this.record = null;
        this.wanted = null;
        this.shown = null;
        this.panel.replaceChildren(...children);
    }

    /** The file as a whole: what it holds, by kind. */
    showFile(kinds) {
        const { file } = this.records;
        const table = element("table", { class: "kinds" });
        table.append(element("caption", {}, "Types by kind"));
        const most = Math.max(1, ...kinds.map(([, count]) => count));
        for (const [kind, count] of kinds) {
            const button = element("button", { type: "button", class: "link" }, kind);
            button.addEventListener("click", () => this.filterKind(kind));
            const bar = element("div", { class: "share", "aria-hidden": "true" }, element("div"));
            bar.firstChild.style.width = `${100 * count / most}%`;
            table.append(element("tr", {}, element("th", { scope: "row" }, button),
                                 element("td", { class: "count" }, count.toLocaleString("en")),
                                 element("td", {}, bar)));
        }
        this.showInstead(
            element("h2", { tabindex: "-1" }, file.title),
            facts([["Types", file.count.toLocaleString("en")], ["Version", file.version],
                   ["Storage", `${file.storageSize.toLocaleString("en")} bytes`]]),
            table,
            element("p", { class: "hint" }, "Press ", element("kbd", {}, "/"), " to search, ",
                    element("kbd", {}, "\u2191"), " and ", element("kbd", {}, "\u2193"),
                    " to move in the list, ", element("kbd", {}, "Enter"), " to open a type, ",
                    element("kbd", {}, "Alt"), " ", element("kbd", {}, "\u2190"), " to go back."));
    }

    showMissing(text) {
        this.showInstead(element("h2", { tabindex: "-1" }, "No such type"), element("p", {}, text));
    }

    /** Answers whether the type is shown: not if something else is asked for meanwhile. */
    async showType(id) {
        this.wanted = id;
        const show = await this.records.detailsOf(id).then(
            (details) => () => this.showDetails(id, details),
            (fault) => () => this.showFault(fault));
        if (this.wanted !== id)
            return false;
        show();
        return true;
    }

    showFault(fault) {
        this.showInstead(element("h2", { tabindex: "-1" }, "This browser cannot show types"),
                         element("p", {}, `Take a newer one: ${fault.message}.`));
    }

    showDetails(id, details) {
        const { records } = this;
        this.shown = id;
        const title = element("h2", { tabindex: "-1" }, records.labelOf(id));
        title.classList.toggle("nameless", records.isNameless(id));
        this.panel.replaceChildren(
            backToList(),
            element("p", { class: "above" }, element("span", { class: "kind" }, records.kinds[id]),
                    element("span", { class: "id" }, `type ${id}`)),
            title, this.factsOf(id, details));
        if (details !== null) {
            if (details.declaration !== "")
                this.addSection("Declaration", "declaration",
                                element("pre", { tabindex: "0" },
                                        highlighted(details.declaration.trimEnd())));
            if (records.packed.has(id))
                this.panel.append(new ValueView(this.packedTypes, id, this.typedValues).section);
            this.addRanges(details);
        }
        const links = element("div", { class: "both" });
        links.append(this.linksSection(id), this.referrersSection(id));
        this.panel.append(links);
        this.record = records.size(id) === 0 ? null : new RecordView(records, id, this.rowSize());
        if (this.record !== null)
            this.panel.append(this.record.section);
    }

    factsOf(id, details) {
        const { records } = this;
        const rows = [];
        if (details !== null)
            rows.push(["Value encoding", details.encoding],
                      ["Value size", details.valueSize === 0 ? "not recorded"
                                                             : counted(details.valueSize, "byte")]);
        else
            rows.push(["Type", "no type is built from this record"]);
        rows.push(["Record", `${counted(records.size(id), "byte")} at 0x${records.addresses[id]}`]);
        return facts(rows);
    }

    addSection(title, name, ...children) {
        this.panel.append(section(title, name, ...children));
    }

    addRanges(details) {
        if (details.rangeCount === 0)
            return;
        const list = element("ol", { class: "ranges" });
        const count = details.rangeCount.toLocaleString("en");
        const made = section(
            `Flattened constraints (${details.isWalkWhole ? "" : "more than "}${count})`,
            "constraints", list);
        fillSlowly(list, details.runs.length, (i) => {
            const { count: times, text } = details.runs[i];
            return element("li", {}, times === 1 ? text : `${text} \u00d7 ${times.toLocaleString("en")}`);
        });
        const shown = details.runs.reduce((sum, run) => sum + run.count, 0);
        if (shown < details.rangeCount || !details.isWalkWhole)
            made.append(element("p", { class: "hint" },
                                `The page has the first ${shown.toLocaleString("en")} of them; rtti html --all has more.`));
        this.panel.append(made);
    }

    linksSection(id) {
        const links = this.records.linksOf(id);
        return linkSection("Refers to", "refers", links,
                           (link) => this.linkItem(link.target, this.roleOf(link)));
    }

    /** "element type"; of members their own name. */
    roleOf(link) {
        const { raw, owner } = link;
        if (raw.list === "members" && owner !== null)
            return new Field(this.records, owner).value.slice(1, -1);
        return Field.nameOf(raw);
    }

    referrersSection(id) {
        const ids = this.records.referrers(id);
        return linkSection("Referred to by", "referred", ids, (source) => this.linkItem(source, null));
    }

    linkItem(id, role) {
        const { records } = this;
        const item = element("li");
        if (role !== null)
            item.append(element("span", { class: "role" }, role));
        if (id >= records.count) {
            item.append(element("span", { class: "hint" }, `type ${id}: there is no such type`));
            return item;
        }
        const link = element("a", { href: typeHash(id), title: records.labelOf(id) },
                             ...labelParts(records, id));
        link.classList.toggle("nameless", records.isNameless(id));
        item.append(link, element("span", { class: "kind" }, records.kinds[id]),
                    element("span", { class: "id" }, String(id)));
        return item;
    }
}

function facts(rows) {
    const list = element("dl", { class: "facts" });
    for (const [what, value] of rows)
        list.append(element("div", {}, element("dt", {}, what), element("dd", {}, value)));
    return list;
}

function section(title, name, ...children) {
    return element("section", { class: name, "aria-labelledby": `title-${name}` },
                   element("h3", { id: `title-${name}` }, title), ...children);
}

function linkSection(title, name, links, makeItem) {
    const list = element("ul", { class: "links" });
    const made = section(`${title} (${links.length.toLocaleString("en")})`, name,
                         links.length === 0 ? element("p", { class: "hint" }, "nothing") : list);
    fillSlowly(list, links.length, (i) => makeItem(links[i]));
    return made;
}

/** For narrow windows, which show the list or a type. */
function backToList() {
    return element("a", { class: "back", href: "#" }, "\u2190 All types");
}

/** The bytes of a record with their fields: whichever of the two is pointed at shows the other. */
class RecordView {
    constructor(records, id, rowSize) {
        this.records = records;
        this.id = id;
        this.rowSize = rowSize;
        this.fields = records.fieldsOf(id);
        this.isWhole = this.fields.length <= MOST_AT_FIRST;
        this.marked = [];
        this.section = section("Record", "record");
        this.build();
    }

    build() {
        this.elements = new Map(); // By the index of the field: those that stand for it.
        this.hex = this.hexOf();
        const parts = element("div", { class: "bytes" }, this.hex, this.tableOf());
        parts.addEventListener("mouseover", (event) => this.point(event.target));
        parts.addEventListener("mouseleave", () => this.mark(this.focused));
        parts.addEventListener("focusin", (event) => this.focus(event.target));
        parts.addEventListener("focusout", () => this.focus(null));
        parts.addEventListener("keydown", (event) => this.onKey(event));
        this.focused = null;
        this.section.replaceChildren(this.section.firstChild, parts);
        if (!this.isWhole)
            this.section.append(this.moreButton());
    }

    /** Rows of so many bytes from now on. */
    showRows(rowSize) {
        this.rowSize = rowSize;
        for (const [index, elements] of this.elements)
            this.elements.set(index, elements.filter((made) => !this.hex.contains(made)));
        const last = this.hex;
        this.hex = this.hexOf();
        last.replaceWith(this.hex);
        this.mark(this.focused);
        if (this.focused !== null)
            this.reveal(this.focused);
    }

    shownFields() {
        return this.isWhole ? this.fields : this.fields.slice(0, MOST_AT_FIRST);
    }

    moreButton() {
        const more = element("button", { type: "button", class: "more" },
                             `Show all ${this.fields.length.toLocaleString("en")} fields`);
        more.addEventListener("click", () => {
            this.isWhole = true;
            this.build();
        });
        return more;
    }

    standsFor(index, made) {
        made.dataset.field = index;
        if (!this.elements.has(index))
            this.elements.set(index, []);
        this.elements.get(index).push(made);
        return made;
    }

    /** Rows of bytes; each field's bytes are one piece in each row that they reach into. */
    hexOf() {
        const block = element("div", { class: "hex", "aria-hidden": "true" });
        const address = BigInt(`0x${this.records.addresses[this.id]}`);
        const start = this.records.starts[this.id];
        let row = null;
        this.shownFields().forEach((field, index) => {
            for (let at = field.at; at < field.at + field.size;) {
                if (at % this.rowSize === 0 || row === null) {
                    const offset = (address + BigInt(at)).toString(16).padStart(8, "0");
                    row = element("div", {}, element("span", { class: "offset" }, offset));
                    block.append(row);
                }
                const rowEnd = (Math.floor(at / this.rowSize) + 1) * this.rowSize;
                const end = Math.min(rowEnd, field.at + field.size);
                const bytes = this.records.bytes.subarray(start + at, start + end);
                const text = Array.from(bytes, (byte) => HEX[byte]).join(" ");
                const piece = this.standsFor(index, element("span", { class: "piece" }, text));
                piece.classList.toggle("odd", index % 2 === 1);
                row.append(piece);
                at = end;
            }
        });
        return block;
    }

    tableOf() {
        const table = element("table", { class: "fields" });
        const head = element("tr");
        for (const title of ["Offset", "Field", "Value"])
            head.append(element("th", { scope: "col" }, title));
        const body = element("tbody");
        this.shownFields().forEach((field, index) => {
            const tabindex = index === 0 ? "0" : "-1"; // Arrows lead to the others.
            const row = this.standsFor(index, element("tr", { tabindex }));
            row.classList.add(field.state);
            row.append(element("td", { class: "offset" }, `+${field.at}`),
                       element("th", { scope: "row" }, field.name),
                       element("td", {}, element("span", { class: "value" }, field.value), " ",
                               this.meaningOf(field)));
            body.append(row);
        });
        table.append(element("thead", {}, head), body);
        return element("div", { class: "scroller" }, table);
    }

    /** For people; a reference leads to its type. */
    meaningOf(field) {
        if (field.typeId < this.records.count)
            return element("a", { href: typeHash(field.typeId), tabindex: "-1" }, field.meaning);
        return element("span", { class: "meaning" }, field.meaning);
    }

    point(target) {
        const piece = target.closest("[data-field]");
        this.mark(piece === null ? this.focused : Number(piece.dataset.field));
        if (piece !== null && !this.hex.contains(target))
            this.reveal(Number(piece.dataset.field));
    }

    focus(target) {
        const row = target === null ? null : target.closest("tr[data-field]");
        this.focused = row === null ? null : Number(row.dataset.field);
        this.mark(this.focused);
        if (row !== null)
            this.reveal(this.focused);
    }

    mark(index) {
        for (const made of this.marked)
            made.classList.remove("marked");
        this.marked = index === null ? [] : this.elements.get(index);
        for (const made of this.marked)
            made.classList.add("marked");
    }

    /** Brings the bytes of a field into sight in their own box, where that is too small for all. */
    reveal(index) {
        const piece = this.elements.get(index).find((made) => this.hex.contains(made));
        if (piece === undefined)
            return;
        const top = piece.offsetTop - this.hex.clientHeight / 2;
        if (this.hex.scrollHeight > this.hex.clientHeight)
            this.hex.scrollTop = top;
    }

    /** Arrows move from field to field, Enter follows a reference. */
    onKey(event) {
        const row = event.target.closest("tr[data-field]");
        const steps = { ArrowDown: "nextElementSibling", ArrowUp: "previousElementSibling" };
        if (row === null || event.altKey || event.ctrlKey || event.metaKey)
            return;
        if (event.key in steps) {
            const next = row[steps[event.key]];
            if (next !== null) {
                row.tabIndex = -1;
                next.tabIndex = 0;
                next.focus();
            }
            event.preventDefault();
        } else if (event.key === "Enter" && event.target === row) {
            const link = row.querySelector("a");
            if (link !== null)
                link.click();
        }
    }
}
