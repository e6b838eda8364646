"use strict";

// The list of types: of any number of them only the rows in sight are elements of the page.

/** Pixels; the style sheet gives rows the same height. */
const ROW_HEIGHT = 34;

/** Rows that stand ready above and below those in sight. */
const ROWS_AROUND = 6;

/** Browsers end elements at some 16 million pixels. A longer list scrolls in larger steps. */
const TALLEST = 8000000;

/** A list box over the ids of types, with one of them under the cursor. */
class TypeList {
    constructor(records, box, spacer, open) {
        this.records = records;
        this.box = box;
        this.spacer = spacer;
        this.open = open;
        this.ids = [];
        this.cursor = 0; // An index of `ids`.
        this.opened = -1; // The id that is shown beside the list.
        this.rows = new Map(); // By index.
        this.isAwaited = false;
        box.addEventListener("scroll", () => this.renderSoon());
        box.addEventListener("keydown", (event) => this.onKey(event));
        box.addEventListener("click", (event) => this.onClick(event));
        new ResizeObserver(() => this.render()).observe(box);
    }

    show(ids) {
        this.ids = ids;
        const found = ids.indexOf(this.opened);
        this.cursor = Math.max(found, 0);
        this.height = Math.min(ids.length * ROW_HEIGHT, TALLEST);
        this.spacer.style.height = `${this.height}px`;
        this.forget();
        this.box.scrollTop = 0;
        this.reveal();
    }

    /** Marks a type as the one that is shown, and brings it into sight. */
    markOpened(id) {
        this.opened = id;
        const index = this.ids.indexOf(id);
        if (index >= 0)
            this.cursor = index;
        this.forget();
        if (index >= 0)
            this.reveal();
        else
            this.render();
    }

    focus() {
        this.box.focus();
    }

    moveTo(index) {
        this.cursor = Math.max(0, Math.min(index, this.ids.length - 1));
        this.forget();
        this.reveal();
    }

    /** Pixels of the whole list over those that the box can scroll. */
    scale() {
        const view = this.box.clientHeight;
        const all = this.ids.length * ROW_HEIGHT;
        return this.height > view ? (all - view) / (this.height - view) : 1;
    }

    top() {
        return this.box.scrollTop * this.scale();
    }

    reveal() {
        const view = this.box.clientHeight;
        const row = this.cursor * ROW_HEIGHT;
        let top = this.top();
        if (row < top)
            top = row;
        else if (row + ROW_HEIGHT > top + view)
            top = row + ROW_HEIGHT - view;
        this.box.scrollTop = top / this.scale();
        this.render();
    }

    renderSoon() {
        if (this.isAwaited)
            return;
        this.isAwaited = true;
        requestAnimationFrame(() => {
            this.isAwaited = false;
            this.render();
        });
    }

    forget() {
        for (const row of this.rows.values())
            row.remove();
        this.rows.clear();
    }

    render() {
        const top = this.top();
        const shift = this.box.scrollTop - top; // From the whole list to the spacer.
        const first = Math.max(0, Math.floor(top / ROW_HEIGHT) - ROWS_AROUND);
        const last = Math.min(this.ids.length,
                              Math.ceil((top + this.box.clientHeight) / ROW_HEIGHT) + ROWS_AROUND);
        const free = [];
        for (const [index, row] of this.rows) {
            if (index < first || index >= last) {
                free.push(row);
                this.rows.delete(index);
            }
        }
        for (let index = first; index < last; ++index) {
            let row = this.rows.get(index);
            if (row === undefined) {
                row = free.pop() || this.newRow();
                this.fill(row, index);
                this.rows.set(index, row);
                if (row.parentNode === null)
                    this.spacer.append(row);
            }
            row.style.transform = `translateY(${index * ROW_HEIGHT + shift}px)`;
        }
        for (const row of free)
            row.remove();
        const isInSight = this.rows.has(this.cursor) && this.ids.length > 0;
        if (isInSight)
            this.box.setAttribute("aria-activedescendant", this.rows.get(this.cursor).id);
        else
            this.box.removeAttribute("aria-activedescendant");
    }

    newRow() {
        const row = element("div", { class: "row", role: "option" });
        row.append(element("span", { class: "id" }), element("span", { class: "name" }),
                   element("span", { class: "kind" }));
        return row;
    }

    fill(row, index) {
        const id = this.ids[index];
        row.id = `type-option-${index}`;
        row.dataset.index = index;
        row.setAttribute("aria-posinset", index + 1);
        row.setAttribute("aria-setsize", this.ids.length);
        row.setAttribute("aria-selected", id === this.opened);
        row.classList.toggle("cursor", index === this.cursor);
        row.classList.toggle("nameless", this.records.isNameless(id));
        const [idText, nameText, kindText] = row.children;
        idText.textContent = id;
        nameText.replaceChildren(...labelParts(this.records, id));
        nameText.title = this.records.labelOf(id);
        kindText.textContent = this.records.kinds[id];
    }

    onKey(event) {
        const page = Math.max(1, Math.floor(this.box.clientHeight / ROW_HEIGHT) - 1);
        const steps = { ArrowDown: 1, ArrowUp: -1, PageDown: page, PageUp: -page,
                        Home: -this.ids.length, End: this.ids.length };
        if (event.altKey || event.ctrlKey || event.metaKey)
            return;
        if (event.key in steps)
            this.moveTo(this.cursor + steps[event.key]);
        else if (event.key === "Enter" && this.ids.length > 0)
            this.open(this.ids[this.cursor]);
        else
            return;
        event.preventDefault();
    }

    onClick(event) {
        const row = event.target.closest(".row");
        if (row === null)
            return;
        this.moveTo(Number(row.dataset.index));
        this.open(this.ids[this.cursor]);
    }
}
