import {render as renderToString} from 'svelte/server';

import Application from './application.svelte';

export const render = async () => (await renderToString(Application)).body;
