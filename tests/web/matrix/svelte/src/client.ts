import {hydrate, mount} from 'svelte';

import Application from './application.svelte';

const target = document.getElementById('application')!;
(target.hasChildNodes() ? hydrate : mount)(Application, {target});
