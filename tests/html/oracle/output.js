// Numbers and texts to the standard output, in the form of Qt's data streams.

import fs from 'node:fs';

const large = 1 << 20;

export class Output {
    #buffer = Buffer.alloc(2 * large);
    #used = 0;

    byte(value) {
        this.#makeRoom(1);
        this.#used = this.#buffer.writeUInt8(value, this.#used);
    }

    number(value) {
        this.#makeRoom(4);
        this.#used = this.#buffer.writeInt32BE(value, this.#used);
    }

    text(value) {
        this.bytes(Buffer.from(value, 'utf16le').swap16());
    }

    bytes(bytes) {
        this.number(bytes.length);
        this.#makeRoom(bytes.length);
        this.#used += bytes.copy(this.#buffer, this.#used);
    }

    flushIfLarge() {
        if (this.#used > large) {
            this.flush();
        }
    }

    flush() {
        let written = 0;
        while (written < this.#used) {
            written += fs.writeSync(1, this.#buffer, written, this.#used - written);
        }
        this.#used = 0;
    }

    #makeRoom(count) {
        if (this.#used + count > this.#buffer.length) {
            this.#buffer = Buffer.concat([this.#buffer, Buffer.alloc(this.#buffer.length + count)]);
        }
    }
}
