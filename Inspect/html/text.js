"use strict";

// Names and numbers as people read them, as the library prints them.

/** A number and what it counts: "1 byte", "2 bytes". */
function countOf(number, what, shown = String(number)) {
    return `${shown} ${what}${number === 1 ? "" : "s"}`;
}

/** A byte as two digits. */
const HEX = Array.from({ length: 256 }, (_, byte) => byte.toString(16).padStart(2, "0"));

/** Printable ASCII as it is, everything else escaped. */
function escaped(bytes, isQuoted) {
    let text = "";
    for (const byte of bytes) {
        const isEscapedInQuotes = isQuoted && (byte === 0x22 || byte === 0x5C);
        if (isEscapedInQuotes)
            text += "\\" + String.fromCharCode(byte);
        else if (byte >= 0x20 && byte < 0x7F)
            text += String.fromCharCode(byte);
        else
            text += byte === 0x0A ? "\\n" : byte === 0x09 ? "\\t" : "\\x" + HEX[byte].toUpperCase();
    }
    return text;
}

function quoted(bytes) {
    return '"' + escaped(bytes, true) + '"';
}

/** A range as the languages write it. */
function rangeText(directions, left, right, direction) {
    if (direction === directions.to)
        return `${left} to ${right}`;
    if (direction === directions.downto)
        return `${left} downto ${right}`;
    if (direction !== directions.open)
        return `${left}, ${right}, direction ${direction}`;
    return left === 0 && right === 0 ? "open" : `open (${left}, ${right})`;
}

/** The shortest decimal text that reads back as the same number. */
function realText(value) {
    if (Number.isNaN(value))
        return "nan";
    if (!Number.isFinite(value))
        return value < 0 ? "-inf" : "inf";
    if (Object.is(value, -0))
        return "-0";
    const size = Math.abs(value);
    if (size === 0 || (size >= 1e-4 && size < 1e16))
        return String(value);
    return value.toExponential().replace(/e([+-])(\d)$/, "e$10$2");
}

/** What the loader makes of the direction of a real type. */
function directionMeaning(directions, direction) {
    const truncated = Math.trunc(direction);
    if (!(truncated >= -2147483648 && truncated <= 2147483647))
        return "does not fit into 32 bits: read as -2147483648";
    if (truncated === directions.to)
        return "to";
    if (truncated === directions.downto)
        return "downto";
    return truncated === direction ? "" : `truncated to ${truncated}`;
}
