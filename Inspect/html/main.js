"use strict";

// Puts the page together: search and filter, what the address bar says, keys, colours.

const THEME_KEY = "rtti-theme";

/** How long a search waits for the next key, in milliseconds. */
const TYPING_PAUSE = 60;

/** Whether stored settings can be read: pages of files need not have them. */
function stored(key, value) {
    try {
        if (value !== undefined)
            localStorage.setItem(key, value);
        return localStorage.getItem(key);
    } catch (error) {
        return null;
    }
}

class Page {
    constructor() {
        const at = (id) => document.getElementById(id);
        this.records = new Records(document);
        this.search = at("search");
        this.kind = at("kind");
        this.found = at("found");
        this.panel = at("detail");
        this.lowerLabels = null; // Made when something is first searched for.
        this.list = new TypeList(this.records, at("types"), at("spacer"),
                                 (id) => this.openType(id));
        this.view = new DetailView(this.records, this.panel, (kind) => this.filterKind(kind));
        this.kinds = this.countKinds();
        this.fillKinds();
        this.applyFilter();
        this.listen();
        new Theme(at("theme"));
        this.route().then(() => {
            document.body.dataset.ready = "true";
        });
        performance.mark("list");
    }

    listen() {
        let pause = 0;
        this.search.addEventListener("input", () => {
            clearTimeout(pause);
            pause = setTimeout(() => this.applyFilter(), TYPING_PAUSE);
        });
        this.search.addEventListener("keydown", (event) => this.onSearchKey(event));
        this.kind.addEventListener("change", () => this.applyFilter());
        window.addEventListener("hashchange", () => this.route());
        document.addEventListener("keydown", (event) => this.onKey(event));
    }

    /** Kinds with the number of their types, the most frequent first. */
    countKinds() {
        const counts = new Map();
        for (const kind of this.records.kinds)
            counts.set(kind, (counts.get(kind) || 0) + 1);
        return Array.from(counts).sort((a, b) => b[1] - a[1] || (a[0] < b[0] ? -1 : 1));
    }

    fillKinds() {
        const option = (value, text) => element("option", { value }, text);
        this.kind.append(option("", "All kinds"));
        for (const [kind, count] of this.kinds)
            this.kind.append(option(kind, `${kind} (${count.toLocaleString("en")})`));
    }

    filterKind(kind) {
        this.kind.value = kind;
        this.applyFilter();
        this.list.focus();
    }

    /** Types whose name, or shape if they have none, has the text in it; a number is an id as well, and that type is first. */
    applyFilter() {
        const { records } = this;
        const text = this.search.value.trim().toLowerCase();
        const kind = this.kind.value;
        const wantedId = /^#?\d+$/.test(text) ? Number(text.replace("#", "")) : -1;
        if (this.lowerLabels === null && text !== "")
            this.lowerLabels = records.kinds.map((_, id) => records.labelOf(id).toLowerCase());
        const ids = [];
        for (let id = 0; id < records.count; ++id) {
            if (kind !== "" && records.kinds[id] !== kind)
                continue;
            if (id === wantedId)
                ids.unshift(id);
            else if (text === "" || this.lowerLabels[id].includes(text))
                ids.push(id);
        }
        this.list.show(ids);
        this.found.textContent = ids.length === records.count
            ? counted(records.count, "type")
            : `${ids.length.toLocaleString("en")} of ${counted(records.count, "type")}`;
    }

    openType(id) {
        if (location.hash === typeHash(id))
            this.route();
        else
            location.hash = typeHash(id);
    }

    /** Shows what the address bar asks for. */
    async route() {
        const asked = /^#type-(\d+)$/.exec(location.hash);
        const id = asked === null ? -1 : Number(asked[1]);
        document.body.classList.toggle("open", asked !== null);
        if (asked === null) {
            this.view.showFile(this.kinds);
            this.list.markOpened(-1);
        } else if (id < this.records.count) {
            this.list.markOpened(id);
            if (!await this.view.showType(id))
                return;
        } else {
            this.view.showMissing(`The file has ${counted(this.records.count, "type")}.`);
        }
        this.panel.scrollTop = 0;
        if (asked !== null)
            this.panel.querySelector("h2").focus({ preventScroll: true });
    }

    onSearchKey(event) {
        if (event.key === "ArrowDown" || event.key === "Enter") {
            this.applyFilter();
            this.list.focus();
            if (event.key === "Enter" && this.list.ids.length > 0)
                this.openType(this.list.ids[this.list.cursor]);
        } else if (event.key === "Escape" && this.search.value !== "") {
            this.search.value = "";
            this.applyFilter();
        } else {
            return;
        }
        event.preventDefault();
    }

    onKey(event) {
        if (event.defaultPrevented || event.altKey || event.ctrlKey || event.metaKey)
            return;
        const isTyping = event.target.closest("input, select, textarea") !== null;
        if (event.key === "/" && !isTyping) {
            document.body.classList.remove("open");
            this.search.focus();
            this.search.select();
            event.preventDefault();
        } else if (event.key === "Escape" && this.panel.contains(event.target)) {
            document.body.classList.remove("open");
            this.list.focus();
        }
    }
}

/** Dark or light: as the system has it, until the button says otherwise. */
class Theme {
    constructor(button) {
        this.button = button;
        this.system = matchMedia("(prefers-color-scheme: dark)");
        this.system.addEventListener("change", () => this.show());
        this.chosen = stored(THEME_KEY);
        button.addEventListener("click", () => {
            this.chosen = this.isDark() ? "light" : "dark";
            stored(THEME_KEY, this.chosen);
            this.show();
        });
        this.show();
    }

    isDark() {
        return this.chosen === null ? this.system.matches : this.chosen === "dark";
    }

    show() {
        document.documentElement.dataset.theme = this.isDark() ? "dark" : "light";
        this.button.setAttribute("aria-pressed", String(this.isDark()));
    }
}

const page = new Page();
